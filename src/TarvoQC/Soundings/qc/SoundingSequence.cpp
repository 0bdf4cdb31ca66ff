#include "Sounding.h"

#include "DCapture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// The QC modes of the item DoQC that end a run early; 0 never gets here, 1 runs the whole sequence.
constexpr int kPassThrough = 2;
constexpr int kTDDryBiasOnly = 3;

constexpr std::array<const char*, 8> kStampedSeries{"RawPres", "RawTdry",   "RawRH",  "RawWspd",
                                                    "RawWdir", "RawGpsAlt", "RawLat", "RawLon"};

/// What QC itself stamps. Flags of the user or the reader stay from run to run.
constexpr auto kQcStamps = static_cast<Value::AttributeType>(
    Value::QcRHThreshold | Value::QcLimitCheck | Value::QcSatsCheck | Value::QcBuddyCheck | Value::QcOutlierCheck |
    Value::QcFilterCheck | Value::QcMonotonicPresCheck | Value::QcVerticalVelCheck | Value::QcAmbientEquilibration |
    Value::DryBiasCorrection | Value::QcWindErrorCheck);

void copyValues(const Series& from, Series& to) {
    to = Series(from, to.id());
}

} // namespace

/// One step of the sequence.
struct Sounding::Step {
    const char* status; ///< what the agent hears; null for a step that works in silence
    enum { All, DescendingOnly } directions;
    void (Sounding::*operation)();
};

/// The order carries these dependencies. Launch values come before offsets, which don't touch them. The time constants
/// read the fall rate that the first vertical velocity left. The pressure adjustment comes after smoothing and before
/// the final vertical velocity, so that the fall rate and the checks on it see the adjusted pressure. The surface
/// observation is made once the fall rate is final, and adds no wind. Heights and positions integrate finished series.
const std::vector<Sounding::Step>& Sounding::steps() {
    static const std::vector<Step> sequence{
        {"applying launch parameters", Step::All, &Sounding::applySndMetaData},
        {"applying offsets", Step::All, &Sounding::offsets},
        {"ambient equilibration", Step::DescendingOnly, &Sounding::ambient},
        {"post splash check", Step::All, &Sounding::postSplashCheck},
        {"RH thresholding", Step::All, &Sounding::rhThresholding},
        {"limit checks", Step::All, &Sounding::limitCheck},
        {"satellite check", Step::All, &Sounding::satsCheck},
        {"wind error check", Step::All, &Sounding::weCheck},
        {"buddy check", Step::All, &Sounding::buddyCheck},
        {"outlier check", Step::All, &Sounding::outlierCheck},
        {"filter check", Step::All, &Sounding::filterCheck},
        {"pressure smoothing", Step::All, &Sounding::pressureSmoothing},
        {"pressure mono check", Step::All, &Sounding::presMonoCheck},
        {"compute vertical velocity", Step::All, &Sounding::verticalVelocityForTimeConstants},
        {"updating time constants", Step::All, &Sounding::updateTimeConstants},
        {"dynamic tdry adjustment", Step::All, &Sounding::TdryDynAdjust},
        {"RH limit checking", Step::All, &Sounding::RHThreshold},
        {"final smoothing", Step::All, &Sounding::smooth},
        {"RH limit checking", Step::All, &Sounding::RHThreshold},
        {"pressure adjustment", Step::DescendingOnly, &Sounding::adjustPressures},
        {"compute vertical velocity", Step::All, &Sounding::verticalVelocityFinal},
        {"vertical velocity check", Step::All, &Sounding::vvCheck},
        {"compute w (dropsondes only)", Step::All, &Sounding::verticalWind},
        {nullptr, Step::DescendingOnly, &Sounding::createSfcObs},
        {"dynamic winds adjustment", Step::All, &Sounding::WindDynAdjust},
        {"fast fall check", Step::All, &Sounding::fastFallCheck},
        {"compute altitudes", Step::All, &Sounding::altitudes},
        {"compute position", Step::All, &Sounding::position},
    };
    return sequence;
}

void Sounding::qcProcess(StatusAgent& agent) {
    if (!prepare(agent)) {
        return;
    }
    for (const Step& step : steps()) {
        if (step.directions == Step::DescendingOnly && _meta.ascending) {
            continue;
        }
        if (step.status != nullptr) {
            agent.AppendStatus(step.status);
        }
        (this->*step.operation)();
    }
    tellDescent();
}

/// Tells the file of a descent the altitude that it begins at, which is that of the smallest pressure: the ascent may
/// still have the fall behind it.
void Sounding::tellDescent() {
    const Series& pres = *getSeries("QCPres");
    if (!_meta.ascending || derivedSndFile().empty() || pres.empty()) {
        return;
    }
    const auto burst =
        std::min_element(pres.begin(), pres.end(), [](const Value& a, const Value& b) { return a.data() < b.data(); });
    const Series& altUp = *getSeries("QCAltUp");
    if (const int index = altUp.indexFromTime(burst->time()); index >= 0) {
        _file->updateDescendingGeoAlt(altUp.data(index));
    }
}

/// Everything ahead of the checks. False when the QC mode or the kind of sounding ends the run here.
bool Sounding::prepare(StatusAgent& agent) {
    describe();
    _qcErrorFlag = false;
    _qcErrorText.clear();
    _tdryTimeConstant = OmbraTdryTimeConstant(_sensorType);
    agent.AppendStatus("initializing");
    updateSndMetaData(true);
    if (QCavail()) {
        clearQcAtt();
        _attributes.clear();
    }
    rebuildQcData();
    if (intOf("DoQC") == kPassThrough) {
        passThrough();
        return false;
    }
    agent.AppendStatus("applying TD dry bias correction");
    TDDryBiasCorrect();
    return intOf("DoQC") != kTDDryBiasOnly && soundingType() != SoundingType::Wmo;
}

void Sounding::describe() {
    _summary.addItem("Description", description());
    for (const std::string& line : _fileSummary) {
        _summary.addItem("Description", line);
    }
    if (DCapture::enabled()) {
        DCapture::dcout << "--- Processing " << description() << " ---\n\n";
        _summary.addItem("Diagnostic Capture", DCapture::instance().fileName());
    }
}

void Sounding::rebuildQcData() {
    const bool discardBadCrc = boolOf("DiscardBadCrcData");
    _qcRhChannel = RHselection();
    double endTime = 0.0;
    if (_config.value("LastDataTimeOverride", endTime)) {
        // Half a tenth later than the tenth asked for, so that the sample at that tenth is in.
        _observation->initQCdata((std::trunc(endTime * 10.0) + 0.5) / 10.0, _qcRhChannel, discardBadCrc);
    } else {
        _observation->initQCdata(_qcRhChannel, discardBadCrc);
    }
}

void Sounding::passThrough() {
    copyValues(*getSeries("RawAlt"), *getSeries("QCAltUp"));
    copyValues(*getSeries("RawDz"), *getSeries("QCDz"));
}

void Sounding::clearQcAtt() {
    for (const char* name : kStampedSeries) {
        getSeries(name)->clearAttribute(kQcStamps);
    }
}
