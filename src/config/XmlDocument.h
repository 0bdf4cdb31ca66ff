#pragma once

#include "TarvoEntityResolver.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/SecurityManager.hpp>

/// Holds the XML library for as long as it lives. The library counts, so any number of these may be there at one time.
class XmlLibrary {
public:
    XmlLibrary();
    XmlLibrary(const XmlLibrary&) = delete;
    XmlLibrary& operator=(const XmlLibrary&) = delete;
    ~XmlLibrary();

    /// False when the library could not be initialised: nothing of it may be used then.
    bool isReady() const { return _ready; }
    const std::string& problem() const { return _problem; }

private:
    bool _ready = false;
    std::string _problem;
};

/// One parsed document. Nothing outside it is ever fetched: the only external text it knows is "tarvo.dtd". It isn't
/// validated. Needs a living XmlLibrary.
class XmlDocument {
public:
    XmlDocument();

    /// Parses \p text. On failure false, and \p problem tells in plain words what is wrong and where.
    bool parse(std::string_view text, std::string& problem);

    xercesc::DOMDocument* document() const { return _parser.getDocument(); }

    /// The document as UTF-8 text, declared as such; false if the library refuses.
    bool serialise(std::string& text) const;

private:
    TarvoEntityResolver _resolver;
    xercesc::SecurityManager _limits;
    mutable xercesc::XercesDOMParser _parser;
};

/// \p top and the elements below it that are called \p name, depth first, in document order.
std::vector<xercesc::DOMElement*> findNamedNodes(xercesc::DOMElement* top, const char16_t* name);

/// The text of \p element without its comments; child elements don't count as text.
std::string elementText(const xercesc::DOMElement& element);

/// Gives \p element the text \p value unless it has it already, white space at the ends and line ends set aside. True
/// if that changed it.
bool setElementText(xercesc::DOMElement& element, const std::string& value);

/// setElementText() for every child of \p parent called \p name; one is added if there is none and \p value isn't
/// empty.
bool setSubNodeValue(xercesc::DOMElement& parent, const char16_t* name, const std::string& value);
