// The factory with every reader behind it.

#include "ConfigSet.h"
#include "Require.h"
#include "SoundingFileFactory.h"

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Registry registry;
    ConfigSet config(&registry);
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    const std::unique_ptr<SoundingFile> file(SoundingFileFactory::newSoundingFile(config, "/data/sounding", &stream));
    if (file == nullptr) {
        return 0;
    }
    const int last = file->sTime()->lastIndex(); // of other series -1, of a quantity that the format doesn't have
    for (Series* series : {file->sPres(), file->sTdry(), file->sRh0(), file->sWdir(), file->sWspd(), file->sLat()}) {
        require(series->lastIndex() == last || series->empty() || file->soundingType() == SoundingType::Unknown);
    }
    require(!file->isValid() || file->soundingType() == SoundingType::Wmo || file->dataPoints() > 0);
    file->unixLaunchObsTime();
    file->adjustErrStats(1.0);
    // Without a launch nothing has been counted that could be taken off again.
    require(!file->isValid() || (file->getPtuErrNum() >= 0 && file->getPGErrNum() >= 0));
    require(!file->description().empty());
    return 0;
}
