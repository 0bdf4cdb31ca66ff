#include "FileSaver.h"

#include "AtomicFile.h"
#include "DataFileSaveBufr.h"
#include "DataFileSaveCsv.h"
#include "DataFileSaveFRD.h"
#include "DataFileSaveNetcdf.h"
#include "DataFileSaveTrove.h"
#include "DataFileSaveZOR.h"
#include "EditorControl.h"
#include "ProductColumns.h"
#include "SndMetaData.h"
#include "Text.h"

#include <array>
#include <ostream>

namespace {

using Columns = ProductColumns;
using Writer = void (*)(const std::string& filePath, std::ostream& stream, const SndMetaData& metaData,
                        const EditorControl& editor, const Columns& columns);

void writeCsv(const std::string& filePath, std::ostream& stream, const SndMetaData& metaData,
              const EditorControl& editor, const Columns& c) {
    DataFileSaveCsv(filePath, stream, c.nRows(), metaData, editor, c[Columns::Time], c[Columns::Pres], c[Columns::Tdry],
                    c[Columns::RH], c[Columns::Wspd], c[Columns::Wdir], c[Columns::U], c[Columns::V], c[Columns::Lat],
                    c[Columns::Lon], c[Columns::Alt], c[Columns::GpsAlt], c[Columns::Dz], c.firstDataIsPrelaunch());
}

void writeTrove(const std::string& filePath, std::ostream& stream, const SndMetaData& metaData,
                const EditorControl& editor, const Columns& c) {
    DataFileSaveTrove(filePath, stream, c.nRows(), metaData, editor, c[Columns::Time], c[Columns::Pres],
                      c[Columns::Tdry], c[Columns::RH], c[Columns::Wspd], c[Columns::Wdir], c[Columns::U],
                      c[Columns::V], c[Columns::Lat], c[Columns::Lon], c[Columns::Alt], c[Columns::Dz]);
}

void writeZor(const std::string& filePath, std::ostream& stream, const SndMetaData& metaData,
              const EditorControl& editor, const Columns& c) {
    DataFileSaveZOR(filePath, stream, c.nRows(), metaData, editor, c[Columns::Time], c[Columns::Pres], c[Columns::Tdry],
                    c[Columns::RH], c[Columns::Wspd], c[Columns::Wdir], c[Columns::U], c[Columns::V], c[Columns::Lat],
                    c[Columns::Lon], c[Columns::Alt], c[Columns::GpsAlt], c[Columns::Dz]);
}

void writeFrd(const std::string& filePath, std::ostream& stream, const SndMetaData& metaData,
              const EditorControl& editor, const Columns& c) {
    DataFileSaveFRD(filePath, stream, c.nRows(), metaData, editor, c[Columns::Time], c[Columns::Pres], c[Columns::Tdry],
                    c[Columns::RH], c[Columns::Wspd], c[Columns::Wdir], c[Columns::U], c[Columns::V], c[Columns::Lat],
                    c[Columns::Lon], c[Columns::Alt], c[Columns::W], c[Columns::Sats]);
}

bool saveNetcdf(const std::string& filePath, const SndMetaData& metaData, const EditorControl& editor, const Columns& c,
                const Levels* /*levels*/, const std::string& /*bufrTableDir*/) {
    return DataFileSaveNetcdf(filePath, c.nRows(), metaData, editor, c[Columns::Time], c[Columns::Pres],
                              c[Columns::Tdry], c[Columns::RH], c[Columns::Wspd], c[Columns::Wdir], c[Columns::U],
                              c[Columns::V], c[Columns::W], c[Columns::Lat], c[Columns::Lon], c[Columns::Alt],
                              c[Columns::GpsAlt], c[Columns::Dz], c[Columns::DewPoint], c[Columns::MixingRatio],
                              c[Columns::VirtualTemp], c[Columns::PotentialTemp])
        .isSaved();
}

bool saveBufr(const std::string& filePath, const SndMetaData& metaData, const EditorControl& editor, const Columns& c,
              const Levels* levels, const std::string& bufrTableDir) {
    AtomicFile file(filePath, std::ios::out | std::ios::binary);
    return file.isOpen() &&
           DataFileSaveBufr(bufrTableDir, filePath, file.stream(), c.nRows(), metaData, editor, levels,
                            c[Columns::Time], c[Columns::Pres], c[Columns::Tdry], c[Columns::RH], c[Columns::Wspd],
                            c[Columns::Wdir], c[Columns::Lat], c[Columns::Lon], c[Columns::Alt])
               .isWhole() &&
           file.commit();
}

struct Format {
    const char* extension;
    Writer write; ///< writes to a stream that can only fail as one
    bool (*save)(const std::string& filePath, const SndMetaData& metaData, const EditorControl& editor,
                 const Columns& columns, const Levels* levels,
                 const std::string& bufrTableDir) = nullptr; ///< in place of write: makes the whole file, or fails
};

/// Looked through in this order, the first extension found in the filter text winning.
constexpr std::array<Format, 6> kFormats{{
    {".trv", &writeTrove},
    {".nc", nullptr, &saveNetcdf},
    {".csv", &writeCsv},
    {".zor", &writeZor},
    {".frd", &writeFrd},
    {".bfr", nullptr, &saveBufr},
}};

} // namespace

bool FileSaver::saveFile(const std::string& /*revision*/, const std::string& filePath, const std::string& filterText,
                         const SndMetaData& metaData, const EditorControl& editor, const ProductColumns& columns,
                         const Levels* levels, const std::string& bufrTableDir) {
    for (const Format& format : kFormats) {
        if (!contains(filterText, format.extension)) {
            continue;
        }
        if (format.save != nullptr) {
            return format.save(filePath, metaData, editor, columns, levels, bufrTableDir);
        }
        AtomicFile file(filePath);
        if (!file.isOpen()) {
            return false;
        }
        format.write(filePath, file.stream(), metaData, editor, columns);
        return file.commit();
    }
    return false;
}
