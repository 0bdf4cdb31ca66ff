#include "RegistryXMLStore.h"

#include "AtomicFile.h"
#include "OptionText.h"
#include "XmlText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <xercesc/dom/DOMText.hpp>

using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

// Some hundred times the size of the shipped file: what is larger is no configuration.
constexpr std::uintmax_t kMaxFileSize = std::uintmax_t{64} * 1024 * 1024;

/// The content of the file; on failure false, with the reason in \p content.
bool readFile(const std::string& path, std::string& content) {
    std::error_code error;
    const auto kind = std::filesystem::status(path, error).type();
    if (kind == std::filesystem::file_type::not_found || kind == std::filesystem::file_type::none) {
        content = "there is no file '" + path + "'";
        return false;
    }
    if (kind != std::filesystem::file_type::regular) {
        content = "'" + path + "' is not a file";
        return false;
    }
    if (std::filesystem::file_size(path, error) > kMaxFileSize || error) {
        content = "'" + path + "' is too large for a configuration";
        return false;
    }
    std::ifstream file(path, std::ios::binary);
    content.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    if (!file.is_open() || file.bad()) {
        content = "the file '" + path + "' cannot be read";
        return false;
    }
    return true;
}

std::string attribute(const DOMElement& element, const char16_t* name) {
    return deWhite(fromXmlText(element.getAttribute(name)));
}

Option::OPTION_TYPE typeOf(const std::string& name) {
    if (name == "bool") {
        return Option::BOOL;
    }
    return name == "numeric" ? Option::NUMERIC : Option::STRING;
}

const char16_t* typeName(Option::OPTION_TYPE type) {
    constexpr const char16_t* kNames[] = {u"numeric", u"bool", u"string"};
    return kNames[type];
}

void parseOptionNode(const DOMElement& element, Option& option) {
    if (!element.hasAttribute(u"type")) {
        return;
    }
    option.type = typeOf(attribute(element, u"type"));
    option.immediate = attribute(element, u"immediate") == "true";
    for (const DOMElement* child = element.getFirstElementChild(); child != nullptr;
         child = child->getNextElementSibling()) {
        if (child->getFirstChild() == nullptr) {
            continue;
        }
        const std::string name = fromXmlText(child->getTagName());
        if (name == "current") {
            option.currentText = deWhite(elementText(*child));
        } else if (name == "default") {
            option.defaultText = deWhite(elementText(*child));
        }
    }
}

/// The name of an active set: the text that \p element begins with.
bool readName(const DOMElement& element, std::string& name) {
    const DOMNode* first = element.getFirstChild();
    if (first == nullptr || first->getNodeType() != DOMNode::TEXT_NODE) {
        return false;
    }
    name = deWhite(fromXmlText(first->getNodeValue()));
    return true;
}

/// Changes the name that readName() reads; true if it differed.
bool writeName(DOMElement& element, const std::string& name) {
    std::string before;
    if (!readName(element, before)) {
        return setElementText(element, name);
    }
    if (before == name) {
        return false;
    }
    element.getFirstChild()->setNodeValue(toXmlText(name).c_str());
    return true;
}

} // namespace

RegistryXML::Store::Store(std::string path) : _path(std::move(path)) {}

void RegistryXML::Store::fail(int status, const std::string& reason) {
    _status = status;
    _statusText = reason;
    _sets.clear();
    _setElements.clear();
    _active1 = ActiveName();
    _active2 = ActiveName();
}

void RegistryXML::Store::load(const std::string& activeOverride) {
    std::string content;
    if (!_library.isReady() || readFile(_path, content)) {
        loadText(content, activeOverride);
    } else {
        fail(BAD_CONTENT, content);
    }
}

void RegistryXML::Store::loadText(std::string_view xml, const std::string& activeOverride) {
    if (!_library.isReady()) {
        fail(NO_XML_LIBRARY, "the XML library cannot be initialised: " + _library.problem());
        return;
    }
    _xml = std::make_unique<XmlDocument>();
    std::string problem;
    if (!_xml->parse(xml, problem)) {
        fail(BAD_CONTENT, "the configuration cannot be parsed: " + problem);
        return;
    }
    const auto roots = findNamedNodes(_xml->document()->getDocumentElement(), u"tarvoConfig");
    if (roots.empty()) {
        fail(BAD_CONTENT, "the configuration has no element 'tarvoConfig'");
        return;
    }
    if (!readActiveNames(roots.front(), activeOverride) || !readSets(roots.front())) {
        return;
    }
    if (_sets.count(active1Name) == 0) {
        fail(BAD_CONTENT, "the configuration has no set '" + active1Name + "', which is to be the active one");
    }
}

bool RegistryXML::Store::readActiveNames(DOMElement* top, const std::string& activeOverride) {
    auto found = findNamedNodes(top, u"active1");
    if (found.empty()) {
        found = findNamedNodes(top, u"active");
    }
    if (found.empty()) {
        fail(BAD_CONTENT, "the configuration does not name its active set: it has no element 'active1'");
        return false;
    }
    _active1.element = found.front();
    if (!readName(*_active1.element, active1Name)) {
        fail(BAD_CONTENT, "the element 'active1' of the configuration does not begin with the name of a set");
        return false;
    }
    _active1.known = active1Name;
    if (!activeOverride.empty()) {
        active1Name = activeOverride;
    }
    const auto second = findNamedNodes(top, u"active2");
    if (!second.empty()) {
        _active2.element = second.front();
        readName(*_active2.element, active2Name);
        _active2.known = active2Name;
    }
    return true;
}

bool RegistryXML::Store::readSets(DOMElement* top) {
    _setElements = findNamedNodes(top, u"set");
    if (_setElements.empty()) {
        fail(BAD_CONTENT, "the configuration has no sets");
        return false;
    }
    for (DOMElement* element : _setElements) {
        const std::string name = attribute(*element, u"name");
        if (!name.empty()) {
            findOptionNodes(name, element);
        }
    }
    return true;
}

void RegistryXML::Store::findOptionNodes(const std::string& setName, DOMElement* setElement) {
    Options& options = _sets[setName];
    for (DOMElement* element : findNamedNodes(setElement, u"option")) {
        if (!element->hasAttribute(u"name")) {
            continue;
        }
        Entry entry;
        entry.option = Option(attribute(*element, u"name"));
        entry.option.setName = setName;
        entry.element = element;
        parseOptionNode(*element, entry.option);
        options[entry.option.name] = entry;
    }
}

RegistryXML::Store::Entry* RegistryXML::Store::find(const std::string& key) {
    const auto set = _sets.find(active1Name);
    if (set == _sets.end()) {
        return nullptr;
    }
    const auto entry = set->second.find(key);
    return entry == set->second.end() ? nullptr : &entry->second;
}

void RegistryXML::Store::addOption(const std::string& key, Option::OPTION_TYPE type, const std::string& text) {
    const auto set = _sets.find(active1Name);
    if (set == _sets.end() || set->second.empty() || set->second.count(key) != 0) {
        return;
    }
    auto* document = _xml->document();
    DOMNode* parent = set->second.begin()->second.element->getParentNode();
    auto* element = static_cast<DOMElement*>(parent->appendChild(document->createElement(u"option")));
    element->setAttribute(u"name", toXmlText(key).c_str());
    element->setAttribute(u"type", typeName(type));
    for (const char16_t* name : {u"current", u"default"}) {
        auto* child = static_cast<DOMElement*>(element->appendChild(document->createElement(name)));
        setElementText(*child, text);
    }

    Entry& entry = set->second[key];
    entry.option = Option(key);
    entry.option.type = type;
    entry.option.setName = active1Name;
    entry.option.currentText = text;
    entry.option.defaultText = text;
    entry.element = element;
}

void RegistryXML::Store::setText(Entry& entry, const std::string& text) {
    entry.option.currentText = text;
    entry.touched = true;
}

void RegistryXML::Store::updateDocument(bool immediateOnly) {
    for (auto& [setName, options] : _sets) {
        for (auto& [key, entry] : options) {
            if (!entry.touched || (immediateOnly && !entry.option.immediate)) {
                continue;
            }
            // The default never changes once it is read, so the element has it already.
            _dirty = setSubNodeValue(*entry.element, u"current", entry.option.currentText) || _dirty;
            entry.touched = false;
        }
    }
    if (!immediateOnly) {
        updateName(_active1, active1Name);
        updateName(_active2, active2Name);
    }
}

void RegistryXML::Store::updateName(ActiveName& active, const std::string& name) {
    if (active.element != nullptr && name != active.known) {
        _dirty = writeName(*active.element, name) || _dirty;
        active.known = name;
        active.isNew = true;
    }
}

/// Where this store gives no other, the file goes on naming the active sets that it names now: another store may have
/// changed them since this one was loaded. A set that only the other knows goes with its document.
void RegistryXML::Store::keepNamesOfFile() {
    Store file(_path);
    file.load("");
    const auto keep = [this, &file](ActiveName& active, const std::string& name) {
        if (active.element != nullptr && !active.isNew && file.status() == LOADED && _sets.count(name) != 0) {
            writeName(*active.element, name);
        }
        active.isNew = false;
    };
    keep(_active1, file.active1Name);
    keep(_active2, file.active2Name);
}

void RegistryXML::Store::save(bool immediateOnly) {
    if (_status != LOADED) {
        return;
    }
    updateDocument(immediateOnly);
    if (_dirty && !_path.empty()) {
        keepNamesOfFile();
    }
    std::string text;
    if (_dirty && !_path.empty() && _xml->serialise(text)) {
        AtomicFile file(_path);
        file.stream() << text;
        file.commit(true);
    }
    _dirty = false;
}

std::vector<DOMElement*> RegistryXML::Store::elementsOf(const std::string& setName) const {
    std::vector<DOMElement*> elements;
    std::copy_if(_setElements.begin(), _setElements.end(), std::back_inserter(elements),
                 [&setName](const DOMElement* element) { return attribute(*element, u"name") == setName; });
    return elements;
}

bool RegistryXML::Store::cloneSet(const std::string& from, const std::string& to) {
    const std::u16string name = toXmlText(to);
    const bool canBeRead = !to.empty() && deWhite(fromXmlText(name.c_str())) == to;
    if (!canBeRead || _sets.count(from) == 0 || _sets.count(to) != 0) {
        return false;
    }
    for (DOMElement* element : elementsOf(from)) {
        auto* clone = static_cast<DOMElement*>(element->cloneNode(true));
        findOptionNodes(to, clone);
        _setElements.push_back(clone);
        clone->setAttribute(u"name", name.c_str());
        element->getParentNode()->appendChild(clone);
    }
    _dirty = true;
    return true;
}

bool RegistryXML::Store::deleteSet(const std::string& name) {
    if (_sets.erase(name) == 0) {
        return false;
    }
    for (DOMElement* element : elementsOf(name)) {
        _setElements.erase(std::find(_setElements.begin(), _setElements.end(), element));
        // Not released: a malformed file may have other sets within, which are still known. It goes with the document.
        element->getParentNode()->removeChild(element);
    }
    _dirty = true;
    return true;
}
