#pragma once

#include "EditorControl.h"

#include "CsvText.h"
#include "MadeConfig.h"

#include <sstream>

/// The text of a short dropsonde sounding.
inline CsvText drop() {
    CsvText text(false);
    text.line("Pressure,499.96,\"units=mb\"").line("Temperature,-5.5").line("Latitude,25.12346");
    text.line("SondeId,204715063").line("Comments,\"synthetic\"").line("PtuWindTimeDiff,\"-0.5\"");
    text.fields("Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,Ascent,GpsAlt");
    text.data("0,500.004,-5.5,,10,90,25.123456,-80.5,5500,-11,5510");
    text.data("0.5,505.5,-5.25,50,10,90,,,5420,-11,");
    return text;
}

/// A sounding after QC, whose columns and metadata go into products.
struct MadeAnalysis {
    explicit MadeAnalysis(const CsvText& text = drop()) : editor(config.set, "V3.4.8") {
        std::istringstream stream(text.text());
        editor.getSounding("drop.csv", &stream);
        config.set.set("CabinTemp", -5.5); // as at the launch: nothing has to settle
        editor.qcProcess();
    }
    MadeConfig config;
    EditorControl editor;
};
