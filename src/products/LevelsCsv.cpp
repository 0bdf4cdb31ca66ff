#include "LevelsCsv.h"

#include "Humidity.h"
#include "Levels.h"
#include "Missing.h"
#include "Text.h"
#include "Wind.h"

#include <numeric>
#include <string>

namespace {

std::string cell(const Level& level, LevelFieldId id, const char* format = "%.1f", double factor = 1.0) {
    const LevelField* field = level.getField(id);
    return field == nullptr ? std::string() : stringFormat(format, field->value() * factor);
}

std::string depressionCell(const Level& level) {
    const LevelField* tdry = level.getField(LFtdry);
    const LevelField* rh = level.getField(LFrh);
    if (tdry == nullptr || rh == nullptr || dewPt(tdry->value(), rh->value()) == kMissing) {
        return {};
    }
    return stringFormat("%.1f", dewPtDepression(tdry->value(), rh->value()));
}

} // namespace

void saveLevelsCsv(const Levels& levels, std::ostream& stream) {
    std::vector<int> order(levels.levels().size());
    std::iota(order.begin(), order.end(), 0);
    saveLevelsCsv(levels, order, stream);
}

void saveLevelsCsv(const Levels& levels, const std::vector<int>& order, std::ostream& stream) {
    stream << "Fields,Index,Type,Time,Pres,Tdry,DPdep,RH,Wdir,Wspd,Wspd(kt),Alt\n"
           << "Units,n,text,sec,mb,deg C,deg C,%,deg,m/s,kt,m\n";
    for (const int index : order) {
        const Level& level = levels.levels()[static_cast<std::size_t>(index)];
        stream << "Data," << index << ',' << level.LTname() << ',' << cell(level, LFtime) << ',' << cell(level, LFpres)
               << ',' << cell(level, LFtdry) << ',' << depressionCell(level) << ',' << cell(level, LFrh) << ','
               << cell(level, LFwdir) << ',' << cell(level, LFwspd) << ','
               << cell(level, LFwspd, "%.1f", kKnotsPerMetrePerSecond) << ',' << cell(level, LFalt, "%.0f") << '\n';
    }
}
