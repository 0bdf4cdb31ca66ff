#pragma once

#include <string>
#include <utility>

/// The name of a series or of a configuration item: the key of every map. Names compare as byte strings.
class Id {
public:
    Id() = default;
    Id(std::string name) : _name(std::move(name)) {}
    Id(const char* name) : _name(name) {}
    Id(const Id&) = default;
    Id(Id&&) = default;
    Id& operator=(const Id&) = default;
    Id& operator=(Id&&) = default;
    virtual ~Id() = default;

    std::string name() const { return _name; }

    bool operator==(const Id& other) const { return _name == other._name; }
    bool operator!=(const Id& other) const { return _name != other._name; }
    bool operator<(const Id& other) const { return _name < other._name; }
    bool operator<=(const Id& other) const { return _name <= other._name; }
    bool operator>(const Id& other) const { return _name > other._name; }
    bool operator>=(const Id& other) const { return _name >= other._name; }

private:
    std::string _name;
};
