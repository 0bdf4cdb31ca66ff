#pragma once

#include "Missing.h"
#include "TokenQueue.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct StandardLevel;

/// The levels that a WMO TEMP, TEMP SHIP, TEMP MOBIL or TEMP DROP message holds: the opposite of coding one. The whole
/// text is decoded in the constructor, and the object then only answers.
///
/// It reads the code forms FM 35, 36, 37 and 38, each of the parts A to D once and in any order, and the text remarks
/// of 62626. A part that was there before begins another sounding, which is left unread. A number with letters or
/// slashes where its digits belong counts as not given.
class UnLevels {
public:
    /// The code form, after the first two letters of a part.
    enum WMO_MESSAGE_TYPE { NO_MESSAGE = 0, TEMP = 1, TEMP_SHIP = 2, TEMP_DROP = 3, TEMP_MOBIL = 4 };

    enum LEVEL_TYPE {
        GENERIC = 0, ///< nothing in a message; the start value
        SURFACE = 1,
        MANDATORY = 2,
        SIGNIFICANT = 3,
        TROPOPAUSE = 4,
        MAXWIND = 5,
        LAYER150M = 6,             ///< mean wind of the lowest 150 m
        DEEPLAYER = 7,             ///< mean wind between two pressures
        MEANBLWIND = 8,            ///< mean wind of the boundary layer
        LASTWINDHEIGHT = 9,        ///< where the last wind was measured
        RELEASEPOINT = 10,         ///< where the sonde was released
        SPLASHPOINTWINDINTEG = 11, ///< where it fell, from its winds
        SPLASHPOINTRAWGPS = 12,    ///< where it fell, from its own position
    };

    enum LEVEL_FIELD {
        PRES = 0,   ///< mb; the bottom pressure of a deep layer
        TDRY = 1,   ///< deg C
        DP = 2,     ///< dew point, deg C
        WSPD = 3,   ///< m/s
        WDIR = 4,   ///< deg
        HEIGHT = 5, ///< m
        VA = 6,     ///< wind shear below the maximum wind, m/s
        VB = 7,     ///< wind shear above it, m/s
        CLOCK = 8,  ///< the digits hhmm or hhmmss as one number
        LAT = 9,    ///< deg, north positive
        LON = 10,   ///< deg, east positive
        PRES2 = 11, ///< top pressure of a deep layer, mb
    };

    /// One level. Only the fields that the message gave are in the map.
    class Level : public std::map<LEVEL_FIELD, double> {
    public:
        explicit Level(LEVEL_TYPE type = GENERIC) : _type(type) {}

        LEVEL_TYPE type() const { return _type; }
        void type(LEVEL_TYPE type) { _type = type; }
        /// The name of the type: "surface", "mandatory" and so on; "unknown" for a number that is none.
        std::string name() const;
        /// The name of one of the fields up to VB; "unknown" for the others.
        static std::string fieldName(LEVEL_FIELD field);

        bool has(LEVEL_FIELD field) const { return count(field) > 0; }
        /// -999.0 when the message didn't give it.
        double value(LEVEL_FIELD field) const;

    private:
        LEVEL_TYPE _type;
    };

    /// Nothing read, no levels.
    UnLevels() = default;
    /// Decodes the message. The first error is thrown as a std::string that says what was wrong and where.
    explicit UnLevels(const std::string& text);
    UnLevels(const UnLevels&) = default;
    UnLevels(UnLevels&&) = default;
    UnLevels& operator=(const UnLevels&) = default;
    UnLevels& operator=(UnLevels&&) = default;
    virtual ~UnLevels() = default;

    /// By type, those of one type in the order of the message.
    std::vector<Level> allLevels() const;
    /// The same for some types only.
    std::vector<Level> levels(const std::set<LEVEL_TYPE>& types) const;

    /// "TEMP", "TEMP SHIP", "TEMP DROP", "TEMP MOBIL" or "UNKNOWN".
    std::string wmoType() const;
    /// The abbreviated header; empty without one.
    std::string abrHeader() const { return _abrHeader; }
    /// Block and station number.
    std::string bsn() const { return _bsn; }
    std::string callSign() const { return _callSign; }
    /// Position, deg, north and east positive; -999.0 where the message has none.
    double latitude() const { return _latitude; }
    double longitude() const { return _longitude; }
    /// Of the station, m; -999.0 in any message but a TEMP MOBIL.
    double elevation() const { return _elevation; }
    /// 1 to 31; -1 until read.
    int dayOfMonth() const { return _dayOfMonth; }
    bool windsInKnots() const { return _windsInKnots; }
    /// UTC hour of the observation; -1 until read.
    int obsHour() const { return _obsHour; }
    /// UTC time of the launch, hhmm as one number; -1 until read.
    int obsTime() const { return _obsTime; }
    /// All tokens of the message, in order.
    std::vector<std::string> tokens() const { return _tokens; }
    /// The part that begins another sounding, such as "XXAA"; empty when the text holds only one.
    std::string unreadPart() const { return _unreadPart; }

private:
    enum Part { PART_A = 0, PART_B = 1, PART_C = 2, PART_D = 3, NO_PART = 4 };
    /// The two-character indicator of a standard level and its pressure, mb.
    struct MandatoryInfo {
        std::string_view indicator;
        double pres;
    };
    struct MandatoryTable {
        const MandatoryInfo* rows;
        std::size_t size;
    };
    struct Remark;

    // The frame
    void decodePart();
    static WMO_MESSAGE_TYPE messageTypeOf(std::string_view token);
    static Part partOf(std::string_view token);
    static bool isMMMM(std::string_view token);
    static bool isSectionStarter(std::string_view token);
    static bool endsSection(std::string_view token);
    bool beginsOtherSounding() const;
    /// Whether the next part begins here. Words of a remark may end in "DD", so the code form is asked for as well.
    bool endsPart() const { return isMMMM(_queue.token()); }
    bool isPartAorC() const { return _part == PART_A || _part == PART_C; }

    // Identification
    void decodeAbrHdr();
    std::size_t freeHeaderLength() const;
    void decodeMMMM();
    void decodeSection1();
    void decodeCallSign();
    void decodeBSN();
    bool isBSNmissing() const;
    void decodeYYGGId_YYGGa4();
    void decodeId(std::string_view id);
    /// Takes what tells one sounding from another; a later part may leave it out, but not tell something else.
    void takeIdentity(std::string& known, const std::string& told) const;
    /// The first that is told stays.
    void takeDegrees(double& known, double told) const;
    [[noreturn]] void throwTwoSoundings() const;
    void decodePosition();
    void decodeMobileElev();

    // Surface, standard levels, tropopause, maximum wind
    MandatoryTable mandatoryTable() const;
    void decodeSection2();
    void decodeMandatory(MandatoryTable table, std::size_t index, bool withWind);
    double mandatoryHeight(std::string_view indicator, int h) const;
    std::size_t windsInHighLevels(MandatoryTable table, std::size_t first) const;
    bool isLayout(MandatoryTable table, std::size_t first, std::size_t levels, std::size_t winds) const;
    void decodeSection3();
    void decodeTrop();
    void decodeSection4();
    void decodeMaxWind();
    void decodeShear(Level& level);
    bool is999mbTropopause() const;
    bool is999mbMaxWind() const;
    std::optional<double> highPressure(std::string_view group) const;

    // Groups
    void decodeTTTDD(Level& level);
    void decodeDDFFF(Level& level);
    double speed(int coded) const;

    // Significant levels, and what follows them
    void decodeSection5();
    void decodeSection6();
    std::optional<double> significantPressure(std::string_view group) const;
    void decodeSignificant(void (UnLevels::*values)(Level& level));
    void decodeSection7();
    void decodeSection8();
    void decodeSection9();

    // Remarks
    void decodeSection10();
    void decode62626();
    static const Remark* findRemark(std::string_view word);
    bool isHalfWord(const Remark& remark) const;
    void takeWord(std::string_view word, const char* error);
    void decodeWL();
    void decodeRELSPGSPL();
    void decodeRelSpgSplLatLon(std::string_view text, Level& level) const;
    void decodeAEV();
    void decodeWL150();
    void decodeDLMWND();
    void decodeMBLWND();
    void decodeLSTWND();
    void decodeLAST();
    void decodeEYE();
    void decodeEYEWALL();
    std::optional<int> takeRemarkHeight();

    void add(const Level& level) { _levels.emplace(level.type(), level); }
    void addFirst(const Level& level);
    void settleMandatoryHeights();
    std::optional<StandardLevel> seaSurface() const;

    std::string _abrHeader;
    std::string _bsn;
    bool _bsnMissing = false;
    std::string _callSign;
    double _latitude = kMissing;
    double _longitude = kMissing;
    double _elevation = kMissing;
    int _dayOfMonth = -1;
    bool _windsInKnots = false;
    int _obsHour = -1;
    int _obsTime = -1;
    WMO_MESSAGE_TYPE _messageType = NO_MESSAGE;
    Part _part = NO_PART;
    std::vector<Part> _readParts;
    std::string _unreadPart;
    int _lastWindPartA = kNoWinds; // mb, winds are told from the ground up to here
    int _lastWindPartC = kNoWinds;
    TokenQueue _queue;
    std::vector<std::string> _tokens;
    std::multimap<LEVEL_TYPE, Level> _levels;
    Level _surface; // none of the levels when only its pressure is told

    static constexpr int kNoWinds = 9999;
};
