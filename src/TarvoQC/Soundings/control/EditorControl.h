#pragma once

#include "ConfigSet.h"
#include "Level.h"
#include "Sounding.h"
#include "StatusAgent.h"
#include "Summary.h"

#include <cstdint>
#include <istream>
#include <map>
#include <memory>
#include <string>
#include <vector>

class Levels;
class WMO;
struct LevelSeries;

/// The one object that tabs, product writers and the batch tool talk to: one analysis, from a file name to its levels
/// and message. Each stage runs on the caller's thread; version numbers count the results, so that a view can tell
/// whether it is stale.
///
/// The configuration is borrowed and outlives it, as does the status agent. Operations that need data may be called
/// only while isValid().
class EditorControl {
public:
    using Attributes = std::map<std::string, std::string>;

    /// \p version becomes the TarvoVersion attribute of the products.
    EditorControl(ConfigSet& config, std::string version);
    EditorControl(const EditorControl&) = delete;
    EditorControl& operator=(const EditorControl&) = delete;
    virtual ~EditorControl();

    /// Loads a file in place of the previous one. isValid() and getSndfileErrorMsg() tell how it went.
    void getSounding(const std::string& fileName, std::istream* stream);
    /// Runs QC as the item DoQC says: 0 stops before it.
    void qcProcess();
    /// Makes the levels of the QC data, or takes them from a WMO message, unless the item DoLevels or DoQC is 0. The
    /// message of the old levels goes with them.
    void doLevels();
    /// Codes the WMO message of the levels, unless the item DoWMO or DoQC is 0. A sounding that is a message itself
    /// gets none.
    void doWMO();
    /// Fills the topic "QC Data Recovery Statistics".
    void doSummaryStats();
    /// Sets the field of a level, or of two, when there is a value to set.
    static void addField(Level& level, LevelFieldId id, bool have, double value);
    static void addField(Level& first, Level& second, LevelFieldId id, bool have, double value);

    /// Who hears of the progress; null for nobody.
    void setStatusAgent(StatusAgent* agent) { _agent = agent; }
    void setStatus(const std::string& text);
    /// Takes no notice: items are read when they are used.
    void changeConfigItem(const Id& id, double value);

    int QCversion() const { return _sounding->QCversion(); }
    int rawVersion() const { return _sounding->RawVersion(); }
    int levelsVersion() const { return _levelsVersion; }
    int WMOversion() const { return _wmoVersion; }
    void changeRawVer() { _sounding->changeRawVer(); }

    bool isValid() const { return _sounding != nullptr && _sounding->isValid(); }
    /// Why the file is invalid, or what it warns of; empty without either.
    std::string getSndfileErrorMsg() const;
    bool QCready() const { return _sounding->QCavail(); }
    double QClastDataTime() const { return _sounding->QClastDataTime(); }
    double MaxLastDataTime() const { return _sounding->maxLastDataTime(); }
    Series* getSeries(const Id& id) const { return _sounding->getSeries(id); }
    Series* getAltitudeSeries() const { return _sounding->getAltSeries(); }
    bool getRawTermPres(double& p) const { return _sounding->getRawTermPres(p); }
    bool getSfcAlt(double& alt) const { return _sounding->getSfcAlt(alt); }
    std::string description() const { return _sounding->description(); }
    int numRhChan() const { return _sounding->numRhChan(); }
    bool rhHeatingOn() const { return _sounding->rhHeatingOn(); }
    int windRate() const { return _sounding->windRate(); }
    std::string derivedSndFile() const { return _sounding->derivedSndFile(); }
    Levels* levels() const { return _levels.get(); }
    WMO* wmo() const { return _wmo.get(); }
    int origWMOgroupCount() const { return _origWMOgroupCount; }
    /// Whether the last QC run left an error text, which \p text takes.
    bool qcError(std::string& text) const;

    /// The Keep and Ignore orders.
    bool setDataAtt(const Id& id, double time, Value::AttributeType attribute, bool set);
    SoundingType soundingType(std::string& name) const;
    /// Whether the file is a message: it has levels, and no samples.
    bool isMessage() const { return _sounding->soundingType() == SoundingType::Wmo; }
    void selectRH(int channel) { _sounding->selectRH(channel); }
    int RHselection() const { return _sounding->RHselection(); }
    /// With the overrides of the last run when \p current, else as the file gave it.
    SndMetaData getSndMetaData(bool current) const;
    bool ascending() const { return getSndMetaData(true).ascending; }
    /// "N25.5000 W80.2500"; empty without a launch position in range.
    std::string getLaunchPosString() const;
    /// The altitude of the launch as the upward integration found it, m.
    bool estLaunchAlt(double& out) const;
    /// The altitude of the last data above the surface as the downward integration found it, m.
    bool estTermAlt(double& out) const;

    void summaryAddItem(const std::string& topic, const std::string& item) { _summary.addItem(topic, item); }
    std::vector<std::string> summaryTopics() const { return _summary.topics(); }
    std::vector<std::string> summaryItems(const std::string& topic) { return _summary.items(topic); }

    /// What a product says of its making, by key. A later pair replaces an earlier one of the same key, but for the
    /// configuration pairs, which never do.
    Attributes attributes(bool withConfig, bool onlyOutput) const;
    /// The configuration as texts; only the items that products document with \p onlyOutput. The limits of a check that
    /// is switched off read "999".
    Attributes attributesConfig(bool onlyOutput) const;
    Attributes attributesSnd() const { return _sounding->attributes(); }
    /// Pairs that products with attributes tell beside their own; none unless they are set.
    const Attributes& provenance() const { return _provenance; }
    void provenance(Attributes pairs) { _provenance = std::move(pairs); }
    Attributes filteredAttributes() const { return attributes(true, true); }
    Attributes baseAttributes() const { return attributes(false, false); }

private:
    void splitQcErrors();
    void addWMOLevels();
    LevelSeries levelSeries() const;
    double levelSurfaceAltitude() const;
    double number(const std::string& key) const;
    bool isOn(const std::string& key) const;
    bool isWanted(const std::string& key) const;
    std::string text(const std::string& key) const;
    static std::string durationText(std::int64_t start);

    std::unique_ptr<Sounding> _sounding;
    ConfigSet& _config;
    Attributes _provenance;
    std::unique_ptr<Levels> _levels;
    int _levelsVersion = 0;
    std::unique_ptr<WMO> _wmo;
    int _wmoVersion = 0;
    StatusAgent* _agent = nullptr;
    bool _qcErrorFlag = false;
    std::string _qcErrorText;
    std::string _version;
    int _origWMOgroupCount = 0;
    Summary _summary;
};
