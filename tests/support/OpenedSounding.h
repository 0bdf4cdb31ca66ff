#pragma once

#include "DocumentController.h"
#include "RegistryXML.h"
#include "ShippedConfiguration.h"
#include "TarvoConfigSet.h"

#include <QPrinter>
#include <gtest/gtest.h>

#include <string>

/// An example as a sounding window has it: document, configuration and printer, processed once.
class OpenedSounding {
public:
    explicit OpenedSounding(const std::string& example, const std::string& set = "editsonde")
        : _registry(RegistryXML::fromText(shippedConfiguration(), set)), config(_registry.get()),
          doc(std::string(TARVO_SOURCE_DIR "/examples/data/") + example, &config) {
        std::string error;
        EXPECT_TRUE(doc.initializeDocument(_agent, error)) << error;
        doc.process();
    }
    EditorControl& editor() { return *doc.editor(); }

private:
    StatusAgent _agent;
    std::unique_ptr<RegistryXML> _registry;

public:
    TarvoConfigSet config;
    DocumentController doc;
    QPrinter printer;
};
