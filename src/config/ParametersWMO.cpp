#include "ParameterRows.h"

namespace parameter_rows {

namespace {

constexpr Parameter kWmoGeneration[] = {
    flag("DoWMO", "true", true, kPlain, "enable WMO message generation"),
    text("CallSign", "CALL", "CALL", kImmediate, "call sign of TEMP SHIP and TEMP MOBIL messages"),
    text("BSN", "99999", "99999", kImmediate, "block and station number of TEMP messages"),
    number("TempMsgType", "0", 2, kPlain, "upsonde message type"),
    flag("TempAppendNNNN", "false", false, kPlain, "append the NNNN terminator"),
    flag("ExcludeAbrHdr", "false", false, kPlain, "do not generate the abbreviated header"),
    text("UpsondeAbrHdr", "", "", kImmediate, "abbreviated header of upsonde messages").withShippedDefault("UUNA19"),
    text("UpsondeICAO", "", "", kImmediate, "ICAO code of upsonde messages").withShippedDefault("KWBC"),
    text("TempEmailAddress", "nobody", "nobody", kImmediate, "recipient of the e-mailed message"),
    number("BufrOrigCenter", "60", 60, kImmediate, "BUFR originating centre, numeric"),
    flag("BufrAddAbrHdr", "true", true, kPlain, "put an abbreviated header in front of the BUFR message"),
    text("BufrAbrHdr", "IUDA01", "IUDA01", kImmediate, "abbreviated header in front of the BUFR message"),
    text("BufrOrigCenterICAO", "KWBC", "KWBC", kImmediate, "BUFR originating centre, ICAO"),
    number("ACtype", "0", 0, kImmediate, "stored only"),
    text("ACagency", "AF100", "AF001", kImmediate, "agency of the dropsonde message (Comm tab)")
        .withShippedDefault("AF001"),
    text("MissionStorm", "WXWXA", "WXWXA", kImmediate, "mission storm field (Comm tab)"),
    text("MissionId", "TRAIN", "TRAIN", kImmediate, "mission identifier (Comm tab)"),
    number("IcaoIndex", "1", 1, kImmediate, "index into the ICAO list of the Comm tab"),
    text("AbrHdrOvr", "", "", kImmediate, "abbreviated header override (Comm tab)"),
    text("AtcfId", "", "", kImmediate, "ATCF identifier (Comm tab)"),
    numericText("OptIcao", "", "", kImmediate, "optional ICAO code (Comm tab)"),
    flag("ResampleBufr", "true", true, kPlain, "resample the data of the BUFR product to one second"),
};

constexpr Parameter kWmoSending[] = {
    flag("DisableKermit", "0", false, kImmediate, "switch the Kermit transfer off"),
    text("KermitPath", "C:\\Program Files (x86)\\Kermit 95 2.1\\K95.exe",
         "C:\\Program Files (x86)\\Kermit 95 2.1\\K95.exe", kImmediate, "path of the Kermit application"),
    number("BaudRateIndex", "4", 2, kImmediate, "index into the baud rate list of the Comm tab"),
    number("CommPortIndex", "0", 0, kImmediate, "index into the port list of the Comm tab"),
};

} // namespace

Rows wmoGeneration() {
    return rowsOf(kWmoGeneration);
}

Rows wmoSending() {
    return rowsOf(kWmoSending);
}

} // namespace parameter_rows
