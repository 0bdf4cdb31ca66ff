#pragma once

#include "ConfigSet.h"
#include "SoundingFileFactory.h"

#include <memory>
#include <sstream>
#include <string>

/// A store whose active set has the given name.
class NamedSetRegistry : public Registry {
public:
    explicit NamedSetRegistry(std::string name) : _name(std::move(name)) {}
    std::string getActive1SetName() const override { return _name; }

private:
    std::string _name;
};

inline std::unique_ptr<SoundingFile> readText(const std::string& text, const std::string& setName = "dropsonde",
                                              const std::string& fileName = "/data/D20210801_120003.1") {
    NamedSetRegistry registry(setName);
    ConfigSet config(&registry);
    std::istringstream stream(text);
    return SoundingFileFactory::newSoundingFile(config, fileName, &stream);
}
