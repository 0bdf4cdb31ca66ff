#pragma once

#include "KeyedFile.h"
#include "LaunchTime.h"
#include "OMBRALineSignature.h"
#include "WrittenTime.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The D file of the Ombra dropsonde system: header and comment lines, a launch line, and a line for each data frame,
/// those ahead of the launch included. One frame ahead of the launch is kept.
///
/// Invalid, with a text for each: frame times out of sequence, a launch time neither told nor shown by the pressure, a
/// sonde that doesn't go with the active configuration set, a launch date or time that is none, no data. Any other text
/// is a warning; the file is good.
class OmbraFile : public KeyedFile {
public:
    /// \p lines: without control characters and empty lines.
    OmbraFile(std::string fileName, std::vector<std::string> lines, std::string activeSetName);

private:
    /// A comment line, and the value behind its label.
    struct Comment {
        std::string_view line;
        std::string value;
    };
    struct CommentRule;
    struct FrameLayout;
    static const CommentRule* findCommentRule(OmbraLine type);

    void readData();
    void findFormatVersion();
    void readLines();
    void takeDataFrame(const std::string& line, OmbraLine type);
    bool takeFrameTime(std::string_view& words, double& time);
    void takeCrcFlags(std::string_view flags, double time);
    bool isWindsOnly() const;
    void takeAircraftLine(std::string_view line);
    void takeLaunchLine(std::string_view line);
    FrameLayout frameLayout() const;

    void takeCommentLine(std::string_view line, OmbraLine type);
    void takeProject(const Comment& comment);
    void takeAircraft(const Comment& comment);
    void takeComments(const Comment& comment);
    void takeDataType(const Comment& comment);
    void takeOperator(const Comment& comment);
    void takePrelaunchObs(const Comment& comment);
    void takeTimeOffset(const Comment& comment);
    void takeTimeOffsetText(const Comment& comment);
    void takeStdComments(const Comment& comment);
    void takeNameComments(const Comment& comment);
    void takeIdType(const Comment& comment);
    void takeIdBuilt(const Comment& comment);
    void takeIdRevision(const Comment& comment);
    void takeSensor(const Comment& comment);
    void takeLaunchTime(const Comment& comment);
    void scanForSondeType(const std::string& text);
    void takeCommentSondeId(const std::string& id);
    void checkSondeIds();
    void takeSondeModel(const std::string& model);
    void takeThermoSensor(const std::string& sensor);

    bool fitsActiveSet();
    bool settleLaunchTime();
    void checkDataAheadOfLaunch();
    void removeEarlyData();
    void countCrcErrors();
    void findWindRate();
    void takeLaunchDate();

    double _formatVersion = 1.4;
    double _lastFrameTime = 0.0;
    std::optional<WrittenTime> _toldLaunch;
    bool _toldLaunchIsATime = false;
    double _launchTime = 0.0;
    LaunchTimeSource _launchTimeSource = LaunchTimeSource::LaunchLine;
    std::string _launchLineId;
    std::string _commentId;
    bool _dryBiasSonde = false;
    std::string _sondeRevision;
    std::string _activeSetName;
    std::vector<double> _badPtuTimes;
    std::vector<double> _badGpsTimes;
    std::vector<double> _badBothTimes;
};
