// The whole road of a sounding, as a window goes it: reading, QC, levels, message.

#include "EditorControl.h"
#include "RegistryXML.h"
#include "ShippedConfiguration.h"
#include "TarvoConfigSet.h"

#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto registry = RegistryXML::fromText(shippedConfiguration(), "editsonde");
    TarvoConfigSet config(registry.get());
    EditorControl editor(config, "V3.4.8");
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    editor.getSounding("/data/sounding", &stream);
    if (editor.isValid()) {
        editor.qcProcess();
        editor.qcProcess();
    }
    return 0;
}
