#pragma once

#include "Registry.h"

#include <memory>

/// The store over a configuration file: any number of named sets of options, two of them active. Reads and writes of a
/// key work on the set that carries the active 1 name at the moment of the call; the other sets stay as they are until
/// they are activated. Texts are UTF-8, whatever the locale of the process.
///
/// The file is read once, at construction, and written only by save(). Several instances over one file know nothing of
/// each other: the last one that saves decides. A bad file doesn't throw; ask status() before anything else. On an
/// instance that isn't loaded the other operations find no set and do nothing.
class RegistryXML : public Registry {
public:
    enum Status {
        LOADED = 0,
        BAD_CONTENT = 2, ///< no file, no XML, or not the content a configuration needs
        NO_XML_LIBRARY = 3
    };

    /// Loads \p path. A non-empty \p activeOverride takes the place of the active 1 name of the file; it reaches the
    /// file with the next full save.
    RegistryXML(const std::string& path, const std::string& activeOverride);
    ~RegistryXML() override;

    /// A store over the text of a configuration instead of a file. It never writes anything.
    static std::unique_ptr<RegistryXML> fromText(const std::string& xml, const std::string& activeOverride);

    int status() const override;
    /// What is wrong, in plain words; empty for a loaded store.
    std::string statusText() const;

    /// The current text of the option counts, or the default text when that is empty. An option that the active set
    /// lacks is added to it with the built-in value for both, which alone doesn't make the file be written.
    void getDouble(const std::string& key, double builtIn, double& current, double& defaultValue,
                   bool& immediate) override;
    void getText(const std::string& key, const std::string& builtIn, std::string& current, std::string& defaultValue,
                 bool& immediate) override;
    /// A key that the active set lacks is ignored.
    void set(const std::string& key, double value) override;
    void set(const std::string& key, const std::string& value) override;

    /// Writes the file if anything differs from it, whole or not at all. With \p immediateOnly only options marked
    /// immediate count, and the active names stay as the file has them. A failure is not reported, and not tried again
    /// until the next change.
    void save(bool immediateOnly) override;

    std::string getActive1SetName() const override;
    /// Empty when the file names none.
    std::string getActive2SetName() const override;
    /// Sorted by name.
    std::vector<std::string> getSetNames() const override;
    void setActive1SetName(const std::string& name) override;
    void setActive2SetName(const std::string& name) override;

    /// Adds a set \p to, a copy of what the document holds for \p from. False if \p from is unknown, \p to exists, or
    /// \p to can't be the name of a set (empty, or with white space at its ends).
    bool cloneSet(const std::string& from, const std::string& to) override;
    /// Active sets are not protected. False if the set is unknown.
    bool deleteSet(const std::string& name) override;

    bool getOptionType(const std::string& key, Option::OPTION_TYPE& type) const override;

private:
    class Store;

    explicit RegistryXML(std::unique_ptr<Store> store);

    std::unique_ptr<Store> _store;
};
