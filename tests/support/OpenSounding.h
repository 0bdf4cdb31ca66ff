#pragma once

#include "DocumentController.h"
#include "RegistryXML.h"
#include "StatusAgent.h"
#include "TarvoConfigSet.h"
#include "TemporaryFolder.h"

#include <QPrinter>
#include <gtest/gtest.h>

/// A sounding file with the configuration that users begin with, as a window holds them, without the window.
struct OpenSounding {
    static std::string example(const std::string& name) { return TARVO_SOURCE_DIR "/examples/data/" + name; }

    explicit OpenSounding(const std::string& path, const std::string& set = "")
        : registry(RegistryXML::fromText(readFile(TARVO_SOURCE_DIR "/resources/tarvo.xml"), set)),
          config(registry.get()), doc(path, &config) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        std::string error;
        EXPECT_TRUE(doc.initializeDocument(agent, error)) << error;
    }

    EditorControl& editor() { return *doc.editor(); }
    double number(const std::string& key) const {
        double out = 0.0;
        EXPECT_TRUE(config.value(key, out)) << key;
        return out;
    }
    std::string text(const std::string& key) const {
        std::string out;
        EXPECT_TRUE(config.text(key, out)) << key;
        return out;
    }

    std::unique_ptr<RegistryXML> registry;
    TarvoConfigSet config;
    StatusAgent agent;
    DocumentController doc;
    QPrinter printer{QPrinter::HighResolution};
};

/// The same of an example, with a shipped set, processed once.
struct OpenedSounding : OpenSounding {
    explicit OpenedSounding(const std::string& name, const std::string& set = "editsonde")
        : OpenSounding(example(name), set) {
        doc.process();
    }
};

/// The file of a dropsonde with many faults.
constexpr char kFaulty[] = "D20210914_043120.2";
