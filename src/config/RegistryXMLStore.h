#pragma once

#include "Option.h"
#include "RegistryXML.h"
#include "XmlDocument.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The document behind a RegistryXML and what was read from it.
class RegistryXML::Store {
public:
    /// An option with the element it stands in.
    struct Entry {
        Option option;
        xercesc::DOMElement* element = nullptr;
        /// The text in memory was set since it was last brought into the document.
        bool touched = false;
    };
    using Options = std::map<std::string, Entry>;

    /// An empty \p path makes a store that is never written.
    explicit Store(std::string path);

    void load(const std::string& activeOverride);
    void loadText(std::string_view xml, const std::string& activeOverride);

    /// The entry of \p key in the active set; null if it lacks the key.
    Entry* find(const std::string& key);
    void addOption(const std::string& key, Option::OPTION_TYPE type, const std::string& text);
    void setText(Entry& entry, const std::string& text);
    void save(bool immediateOnly);
    bool cloneSet(const std::string& from, const std::string& to);
    bool deleteSet(const std::string& name);

    int status() const { return _status; }
    const std::string& statusText() const { return _statusText; }
    const std::map<std::string, Options>& sets() const { return _sets; }

    std::string active1Name;
    std::string active2Name;

private:
    /// The element that names an active set.
    struct ActiveName {
        xercesc::DOMElement* element = nullptr;
        /// The name that was read from it, or that this store gave it last.
        std::string known;
        /// The name isn't in the file yet.
        bool isNew = false;
    };

    void fail(int status, const std::string& reason);
    bool readActiveNames(xercesc::DOMElement* top, const std::string& activeOverride);
    bool readSets(xercesc::DOMElement* top);
    void findOptionNodes(const std::string& setName, xercesc::DOMElement* setElement);
    void updateDocument(bool immediateOnly);
    void updateName(ActiveName& active, const std::string& name);
    void keepNamesOfFile();
    std::vector<xercesc::DOMElement*> elementsOf(const std::string& setName) const;

    XmlLibrary _library; // first, so that it outlives the document
    std::unique_ptr<XmlDocument> _xml;
    std::string _path;
    int _status = LOADED;
    std::string _statusText;
    ActiveName _active1;
    ActiveName _active2;
    std::vector<xercesc::DOMElement*> _setElements;
    std::map<std::string, Options> _sets;
    bool _dirty = false;
};
