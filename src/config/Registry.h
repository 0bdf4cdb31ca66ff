#pragma once

#include "Option.h"

#include <map>
#include <string>
#include <vector>

/// The store behind configuration items. This base is a store held entirely in memory: it knows one set, answers every
/// key with what was stored or with the built-in value, and saves nothing.
class Registry {
public:
    Registry() = default;
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;
    virtual ~Registry() = default;

    /// The stored value of \p key, or \p builtIn; the default value; whether a change is saved at once.
    virtual void getDouble(const std::string& key, double builtIn, double& current, double& defaultValue,
                           bool& immediate);
    virtual void getText(const std::string& key, const std::string& builtIn, std::string& current,
                         std::string& defaultValue, bool& immediate);
    virtual void set(const std::string& key, double value);
    virtual void set(const std::string& key, const std::string& value);
    /// Writes what changed to where the store lives; only the options marked immediate with \p immediateOnly.
    virtual void save(bool immediateOnly);

    /// 0 when the store can be used.
    virtual int status() const;
    virtual std::string getActive1SetName() const;
    virtual std::string getActive2SetName() const;
    virtual std::vector<std::string> getSetNames() const;
    virtual void setActive1SetName(const std::string& name);
    virtual void setActive2SetName(const std::string& name);
    virtual bool cloneSet(const std::string& from, const std::string& to);
    virtual bool deleteSet(const std::string& name);
    /// The type of \p key in the active set; false when the store doesn't know it.
    virtual bool getOptionType(const std::string& key, Option::OPTION_TYPE& type) const;

private:
    std::map<std::string, std::string> _texts;
    std::map<std::string, double> _values;
};
