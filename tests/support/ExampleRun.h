#pragma once

#include "EditorControl.h"
#include "RegistryXML.h"
#include "ShippedConfiguration.h"
#include "TarvoConfigSet.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

inline const std::filesystem::path kExamples = TARVO_SOURCE_DIR "/examples/data";

/// An example, read with a shipped set.
struct ExampleRun {
    explicit ExampleRun(const std::string& file, const std::string& set = "editsonde")
        : registry(RegistryXML::fromText(shippedConfiguration(), set)), config(registry.get()),
          editor(config, "V3.4.8") {
        std::ifstream stream(kExamples / file);
        editor.getSounding((kExamples / file).string(), &stream);
    }

    std::unique_ptr<RegistryXML> registry;
    TarvoConfigSet config;
    EditorControl editor;
};
