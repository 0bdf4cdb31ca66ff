#pragma once

#include "CsvText.h"
#include "MadeConfig.h"
#include "SeriesText.h"
#include "Sounding.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

class StepRecorder : public StatusAgent {
public:
    void AppendStatus(const std::string& text) override { steps.push_back(text); }
    std::vector<std::string> steps;
};

/// A sounding read from text, with its configuration, run as often as a test asks.
struct QcRun {
    explicit QcRun(const CsvText& csv) : text(csv.text()) {}

    Sounding& load() {
        std::istringstream stream(text);
        sounding = std::make_unique<Sounding>("made.csv", &stream, config.set, summary);
        return *sounding;
    }
    void process() {
        if (sounding == nullptr) {
            load();
        }
        summary.clear();
        recorder.steps.clear();
        sounding->qcProcess(recorder);
    }
    std::string series(const char* name) const { return textOf(*sounding->getSeries(name)); }
    std::string errors() const {
        std::string errorText;
        const bool flag = sounding->qcError(errorText);
        EXPECT_EQ(flag, !errorText.empty());
        return errorText;
    }

    std::string text;
    MadeConfig config;
    Summary summary;
    StepRecorder recorder;
    std::unique_ptr<Sounding> sounding;
};
