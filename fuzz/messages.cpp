// The decoder of WMO messages.

#include "Require.h"
#include "UnLevels.h"

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const UnLevels message(std::string(reinterpret_cast<const char*>(data), size));
        require(!message.wmoType().empty() || message.allLevels().empty());
        for (const UnLevels::Level& level : message.allLevels()) {
            require(!level.name().empty() && level.name() != "unknown");
        }
    } catch (const std::string& why) {
        require(!why.empty());
    }
    return 0;
}
