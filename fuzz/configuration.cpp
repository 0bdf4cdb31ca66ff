// A configuration file, and what users do with its sets.

#include "RegistryXML.h"
#include "Require.h"
#include "TarvoConfigSet.h"

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto registry = RegistryXML::fromText(std::string(reinterpret_cast<const char*>(data), size), "");
    const bool loaded = registry->status() == RegistryXML::LOADED;
    require(loaded == registry->statusText().empty());
    require(!loaded || !registry->getSetNames().empty());
    TarvoConfigSet set(registry.get());
    set.set("PlotPixelsX", 640.0);
    set.save(false);
    for (const std::string& name : registry->getSetNames()) {
        registry->cloneSet(name, "a copy");
    }
    if (loaded && registry->cloneSet(registry->getActive1SetName(), "another copy")) {
        registry->setActive1SetName("another copy");
        registry->deleteSet("another copy");
    }
    return 0;
}
