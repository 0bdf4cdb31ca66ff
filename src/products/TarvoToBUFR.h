#pragma once

#include "BufrRows.h"
#include "SndMetaData.h"
#include "bufr.h"

#include <cstdint>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

class Levels;

/// Codes one sounding as one BUFR message, optionally behind an abbreviated header. A subclass gives the descriptors.
///
/// The tables are looked for where the environment variable AFSISIO says, or else BUFR_TABLES, or else in the directory
/// given to set_bufr_table_dir(). Faults are told on the standard error stream. The environment of the process is
/// written to, so that nothing here may run beside another thread.
class TarvoToBUFR {
public:
    using Attributes = std::map<std::string, std::string>;

    TarvoToBUFR(const TarvoToBUFR&) = delete;
    TarvoToBUFR& operator=(const TarvoToBUFR&) = delete;
    virtual ~TarvoToBUFR();

    /// Where later objects look for the tables. A path that is too long is told of and changes nothing.
    static void set_bufr_table_dir(const std::string& dir);

    /// Codes \p n rows of columns (s, mb, deg C, %, m/s, degrees, degrees, degrees, m; -999.0 is missing). \p levels
    /// may be null. False when the sounding can't be coded, or isn't coded as the tables have it.
    bool process(int n, const SndMetaData& metaData, const Attributes& attributes, const Levels* levels,
                 const double* time, const double* pres, const double* tdry, const double* rh, const double* wspd,
                 const double* wdir, const double* lat, const double* lon, const double* alt);

    /// Writes the message. False when there is none, or it can't be written.
    bool save(std::ostream* stream);

protected:
    /// Takes a descriptor of the subset and its position, and returns how many positions it has dealt with.
    using Handler = int (TarvoToBUFR::*)(bufr_desc* descriptor, int position);
    struct Action {
        int descriptor;
        Handler handler; ///< null for a descriptor that gets no value
    };

    TarvoToBUFR();

    /// Makes template, dataset and subset from the top-level descriptors.
    void create_template(const std::vector<int>& descriptors);

    int bufr_001081_sernumber(bufr_desc* descriptor, int position);
    int bufr_002017_algorithms(bufr_desc* descriptor, int position);
    int bufr_025061_softwareid(bufr_desc* descriptor, int position);
    int bufr_002191_geocalc(bufr_desc* descriptor, int position);
    int bufr_001023_obsnum(bufr_desc* descriptor, int position);
    int bufr_001001_wmoblock(bufr_desc* descriptor, int position);
    int bufr_001002_wmostation(bufr_desc* descriptor, int position);
    int bufr_001011_stationid(bufr_desc* descriptor, int position);
    int bufr_001006_aircraftid(bufr_desc* descriptor, int position);
    int bufr_002011_sondetype(bufr_desc* descriptor, int position);
    int bufr_002013_solarcorr(bufr_desc* descriptor, int position);
    int bufr_002014_tracktech(bufr_desc* descriptor, int position);
    int bufr_002003_equiptype(bufr_desc* descriptor, int position);
    int bufr_008021_timesig(bufr_desc* descriptor, int position);
    int bufr_004001_year(bufr_desc* descriptor, int position);
    int bufr_004002_month(bufr_desc* descriptor, int position);
    int bufr_004003_day(bufr_desc* descriptor, int position);
    int bufr_004004_hour(bufr_desc* descriptor, int position);
    int bufr_004005_minute(bufr_desc* descriptor, int position);
    int bufr_004006_second(bufr_desc* descriptor, int position);
    int bufr_005001_lat(bufr_desc* descriptor, int position);
    int bufr_006001_lon(bufr_desc* descriptor, int position);
    int bufr_007007_relheight(bufr_desc* descriptor, int position);
    int bufr_031002_nplevels(bufr_desc* descriptor, int position);
    int bufr_303054_plevels(bufr_desc* descriptor, int position);

    /// One for each descriptor of the subset before its rows, markers included.
    std::vector<Action> _actions;

private:
    bool findAttribute(const std::string& name, std::string& text) const;
    bool findAttribute(const std::string& name, int& number) const;
    void settleLaunchPosition();
    void makeRows();
    void codeDescriptors();
    int process_descriptor(int index, bufr_desc* descriptor, int position);
    void codeRow(std::size_t row, int position);
    bool codeRowElement(bufr_desc* descriptor, std::size_t row);
    int setInt(bufr_desc* descriptor, int value);
    int setDouble(bufr_desc* descriptor, double value);
    int setText(bufr_desc* descriptor, const std::string& text);
    int setCode(bufr_desc* descriptor, const std::string& text, int otherwise);
    int setStationNumber(bufr_desc* descriptor, std::size_t first, std::size_t length);
    std::string makeBufrHeader() const;
    void set_section1(_DBufr* message) const;
    int internationalSubCategory() const;
    void fault(const std::string& text);

    std::unique_ptr<BufrTables, void (*)(BufrTables*)> _tables; // outlives what is made with it
    std::unique_ptr<BufrTemplate, void (*)(BufrTemplate*)> _template;
    std::unique_ptr<BufrDataset, void (*)(BufrDataset*)> _dataset;
    BufrSubset* _subset = nullptr; // the dataset's
    bool _active = false;
    bool _faulty = false;
    BufrRows _rows;
    Attributes _attributes;
    SndMetaData _metaData;
    const Levels* _levels = nullptr;
    double _launchLat;
    double _launchLon;
};
