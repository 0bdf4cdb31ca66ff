#include "SkewTPicture.h"

#include "ConfigSet.h"
#include "Credit.h"
#include "DataArray.h"
#include "EditorControl.h"
#include "Humidity.h"
#include "Levels.h"
#include "Missing.h"
#include "SkewTAdapterSVG.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace {

constexpr int kSvgFontSize = 4; // pixels, the least; the adapter makes it legible
constexpr int kMostPixels = 20000;

using Names = std::array<const char*, 5>;
constexpr Names kRawNames{"RawPres", "RawTdry", "RawRH", "RawWspd", "RawWdir"};
constexpr Names kQcNames{"QCPres", "QCTdry", "QCRH", "QCWspd", "QCWdir"};

double dewPointOf(double tdry, double rh) {
    return tdry == kMissing || rh == kMissing ? kMissing : dewPt(tdry, rh);
}

SkewTData ofSeries(const EditorControl& editor, const Names& names) {
    DataArray rows;
    for (const char* name : names) {
        rows.addSeries(editor.getSeries(name));
    }
    rows.generate();
    const auto column = [&rows](int i) {
        const double* values = rows.getColumn(i);
        return std::vector<double>(values, values + rows.nRows());
    };
    SkewTData data{column(0), column(1), column(2), column(3), column(4)};
    std::transform(data.tdry.begin(), data.tdry.end(), data.dp.begin(), data.dp.begin(), &dewPointOf);
    return data;
}

SkewTData ofLevels(const Levels& levels) {
    SkewTData data;
    for (const Level& level : levels.levels()) {
        const auto value = [&level](LevelFieldId id) {
            double v = kMissing;
            level.getFieldData(id, v);
            return v;
        };
        data.pres.push_back(value(LFpres));
        data.tdry.push_back(value(LFtdry));
        data.dp.push_back(dewPointOf(value(LFtdry), value(LFrh)));
        data.wspd.push_back(value(LFwspd));
        data.wdir.push_back(value(LFwdir));
    }
    return data;
}

struct Bounds {
    double least;
    double most;
};

/// The limits that the configuration gives, within \p bounds. What makes no range leaves both as they are.
void takeRange(const ConfigSet& config, const char* minKey, const char* maxKey, Bounds bounds, double& min,
               double& max) {
    double low = min;
    double high = max;
    config.value(minKey, low);
    config.value(maxKey, high);
    if (!std::isfinite(low) || !std::isfinite(high)) {
        return;
    }
    low = std::clamp(low, bounds.least, bounds.most);
    high = std::clamp(high, bounds.least, bounds.most);
    if (low < high) {
        min = low;
        max = high;
    }
}

} // namespace

SkewTData skewTData(const EditorControl& editor, SkewTSource source) {
    switch (source) {
    case SkewTSource::Levels:
        return editor.levels() == nullptr ? SkewTData() : ofLevels(*editor.levels());
    case SkewTSource::QC:
        return editor.QCready() ? ofSeries(editor, kQcNames) : SkewTData();
    default:
        return ofSeries(editor, kRawNames);
    }
}

SkewTSource defaultSkewTSource(const EditorControl& editor) {
    return editor.QCready() ? SkewTSource::QC : SkewTSource::Raw;
}

SkewTSetup::SkewTSetup(const ConfigSet& config) {
    config.intValue("NumberSkewTWinds", numWinds);
    takeRange(config, "SkewTtmin", "SkewTtmax", {-1000.0, 1000.0}, tmin, tmax);
    takeRange(config, "SkewTpmin", "SkewTpmax", {1.0, 2000.0}, pTop, pBottom);
    config.intValue("PlotPixelsX", pixelsX);
    config.intValue("PlotPixelsY", pixelsY);
    pixelsX = std::clamp(pixelsX, 1, kMostPixels);
    pixelsY = std::clamp(pixelsY, 1, kMostPixels);
}

bool operator==(const SkewTSetup& a, const SkewTSetup& b) {
    const auto all = [](const SkewTSetup& s) {
        return std::tie(s.numWinds, s.tmin, s.tmax, s.pTop, s.pBottom, s.pixelsX, s.pixelsY);
    };
    return all(a) == all(b);
}

std::unique_ptr<skewt::SkewT> makeSkewT(skewt::SkewTAdapter& adapter, const SkewTData& data,
                                        const EditorControl& editor, const SkewTSetup& setup) {
    return std::make_unique<skewt::SkewT>(adapter, static_cast<int>(data.pres.size()), data.tdry.data(), data.dp.data(),
                                          data.wspd.data(), data.wdir.data(), data.pres.data(), setup.numWinds,
                                          editor.description(), editor.getLaunchPosString(), creditText(), setup.tmin,
                                          setup.tmax, setup.pTop, setup.pBottom);
}

void writeSkewTSvg(std::ostream& stream, const SkewTData& data, const EditorControl& editor, const SkewTSetup& setup,
                   bool marks) {
    skewt::SkewTAdapterSVG adapter(stream, setup.pixelsX, setup.pixelsY, kSvgFontSize);
    adapter.markPoints(marks);
    makeSkewT(adapter, data, editor, setup)->brandNewPlot();
}
