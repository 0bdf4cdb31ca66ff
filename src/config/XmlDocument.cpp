#include "XmlDocument.h"

#include "OptionText.h"
#include "XmlText.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

using namespace xercesc;

namespace {

// A configuration has no use for entities of its own. The limit keeps a file of nested ones from filling the memory.
constexpr XMLSize_t kMaxEntityExpansions = 100;

// The elements of a configuration nest four deep; the library recurses when it copies or writes them.
constexpr int kMaxDepth = 100;

struct XmlRelease {
    template <typename Node>
    void operator()(Node* node) const {
        node->release();
    }
};
template <typename Node>
using XmlOwned = std::unique_ptr<Node, XmlRelease>;

class FirstError : public ErrorHandler {
public:
    void warning(const SAXParseException& /*exception*/) override {}
    void error(const SAXParseException& exception) override { note(exception); }
    void fatalError(const SAXParseException& exception) override { note(exception); }
    void resetErrors() override { _text.clear(); }
    const std::string& text() const { return _text; }

private:
    void note(const SAXParseException& exception) {
        if (_text.empty()) {
            _text = "line " + std::to_string(exception.getLineNumber()) + ", column " +
                    std::to_string(exception.getColumnNumber()) + ": " + fromXmlText(exception.getMessage());
        }
    }

    std::string _text;
};

/// The next node after \p node in document order within \p top; null after the last. Keeps \p depth.
const DOMNode* nextNode(const DOMNode* node, const DOMNode* top, int& depth) {
    if (node->getFirstChild() != nullptr) {
        ++depth;
        return node->getFirstChild();
    }
    while (node != top && node->getNextSibling() == nullptr) {
        node = node->getParentNode();
        --depth;
    }
    return node == top ? nullptr : node->getNextSibling();
}

bool isTooDeep(const DOMNode* top) {
    int depth = 0;
    for (const DOMNode* node = top; node != nullptr; node = nextNode(node, top, depth)) {
        if (depth > kMaxDepth) {
            return true;
        }
    }
    return false;
}

std::string xmlVersion(const DOMDocument& document) {
    const std::string version = fromXmlText(document.getXmlVersion());
    return version.empty() ? "1.0" : version;
}

/// Appends one child of the document as UTF-8. They are written one by one because the white space between them is not
/// part of the document, and would be lost if it were written as a whole.
bool appendNode(const DOMNode& node, std::string& text) {
    auto* implementation = DOMImplementationRegistry::getDOMImplementation(u"LS");
    if (implementation == nullptr) {
        return false;
    }
    const XmlOwned<DOMLSSerializer> serializer(implementation->createLSSerializer());
    const XmlOwned<DOMLSOutput> output(implementation->createLSOutput());
    serializer->getDomConfig()->setParameter(XMLUni::fgDOMXMLDeclaration, false);
    MemBufFormatTarget target;
    output->setByteStream(&target);
    output->setEncoding(u"UTF-8");
    const bool written = serializer->write(&node, output.get());
    text.append(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
    return written;
}

/// Runs \p work and turns whatever the XML library throws into false and a text.
template <typename Work>
bool guarded(Work work, std::string& problem) {
    try {
        work();
        return true;
    } catch (const XMLException& exception) {
        problem = fromXmlText(exception.getMessage());
    } catch (const DOMException& exception) {
        problem = fromXmlText(exception.getMessage());
    } catch (const SAXException& exception) {
        problem = fromXmlText(exception.getMessage());
    } catch (const OutOfMemoryException&) {
        problem = "out of memory";
    }
    return false;
}

} // namespace

XmlLibrary::XmlLibrary() {
    _ready = guarded([] { XMLPlatformUtils::Initialize(); }, _problem);
}

XmlLibrary::~XmlLibrary() {
    if (_ready) {
        XMLPlatformUtils::Terminate();
    }
}

XmlDocument::XmlDocument() {
    _limits.setEntityExpansionLimit(kMaxEntityExpansions);
    _parser.setSecurityManager(&_limits);
    _parser.setEntityResolver(&_resolver);
    _parser.setDisableDefaultEntityResolution(true);
    _parser.setValidationScheme(XercesDOMParser::Val_Never);
    // The document type only documents the format: without validation nothing in the result depends on it, and the
    // library leaks a little with every external one that it reads.
    _parser.setLoadExternalDTD(false);
}

bool XmlDocument::parse(std::string_view text, std::string& problem) {
    FirstError firstError;
    _parser.setErrorHandler(&firstError);
    const MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(), u"configuration");
    bool parsed = guarded([&] { _parser.parse(source); }, problem);
    _parser.setErrorHandler(nullptr);
    if (parsed && _parser.getErrorCount() > 0) {
        problem = firstError.text();
        parsed = false;
    }
    if (parsed && (document() == nullptr || document()->getDocumentElement() == nullptr)) {
        problem = "there is no document element";
        parsed = false;
    }
    if (parsed && isTooDeep(document())) {
        problem = "its elements are nested too deep";
        parsed = false;
    }
    return parsed;
}

bool XmlDocument::serialise(std::string& text) const {
    bool written = true;
    std::string problem;
    const bool calm = guarded(
        [&] {
            text = "<?xml version=\"" + xmlVersion(*document()) + "\" encoding=\"UTF-8\"?>\n";
            for (const DOMNode* node = document()->getFirstChild(); node != nullptr; node = node->getNextSibling()) {
                written = appendNode(*node, text) && written;
                text += '\n';
            }
        },
        problem);
    return calm && written;
}

std::vector<DOMElement*> findNamedNodes(DOMElement* top, const char16_t* name) {
    std::vector<DOMElement*> found;
    int depth = 0;
    for (const DOMNode* node = top; node != nullptr; node = nextNode(node, top, depth)) {
        if (node->getNodeType() == DOMNode::ELEMENT_NODE && XMLString::equals(node->getNodeName(), name)) {
            found.push_back(static_cast<DOMElement*>(const_cast<DOMNode*>(node)));
        }
    }
    return found;
}

std::string elementText(const DOMElement& element) {
    std::string text;
    for (const DOMNode* child = element.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
        switch (child->getNodeType()) {
        case DOMNode::TEXT_NODE:
        case DOMNode::CDATA_SECTION_NODE:
        case DOMNode::ENTITY_REFERENCE_NODE:
            text += fromXmlText(child->getTextContent());
            break;
        default:
            break;
        }
    }
    return text;
}

bool setElementText(DOMElement& element, const std::string& value) {
    const std::u16string wanted = toXmlText(value);
    if (deWhite(elementText(element)) == deWhite(fromXmlText(wanted.c_str()))) {
        return false;
    }
    DOMNode* only = element.getFirstChild();
    if (only != nullptr && only->getNextSibling() == nullptr && only->getNodeType() == DOMNode::TEXT_NODE) {
        only->setNodeValue(wanted.c_str());
    } else {
        element.setTextContent(wanted.c_str());
    }
    return true;
}

bool setSubNodeValue(DOMElement& parent, const char16_t* name, const std::string& value) {
    bool found = false;
    bool changed = false;
    for (DOMElement* child = parent.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling()) {
        if (XMLString::equals(child->getTagName(), name)) {
            found = true;
            changed = setElementText(*child, value) || changed;
        }
    }
    if (found || value.empty()) {
        return changed;
    }
    auto* added = static_cast<DOMElement*>(parent.appendChild(parent.getOwnerDocument()->createElement(name)));
    return setElementText(*added, value) || changed;
}
