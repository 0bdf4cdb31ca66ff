#pragma once

#include "UnLevels.h"

#include <string>
#include <vector>

/// A sounding by a dropsonde from 7 mb, in four parts.
inline std::string fourParts() {
    return "UZNT13 KNHC 251930\n"
           "XXAA  75191 99254 70804 08145 99012 27632 12525 00110 27027 12528\n"
           "92797 22414 13030 85528 17214 13535 70156 09458 14040 50588 05963\n"
           "15025 40759 16158 16020 30968 31756 17018 25094 419// 18015 20242\n"
           "535// 19525 15417 667// 20030 10663 777// 21012 88130 71156 20540\n"
           "77160 20065 40612\n"
           "31313 09608 81905\n"
           "51515 10190 70156\n"
           "61616 AF300 0809A TODD OB 07\n"
           "62626 EYEWALL 045 LST WND 012 MBL WND 12525 AEV 30408 DLM WND 13030\n"
           "850250 WL150 12528 085 REL 2562N08051W 190530 SPG 2540N08040W 191845 =\n"
           "XXBB  75198 99254 70804 08145 00012 27632 11936 23216 22700 09458\n"
           "33500 05963 44130 71156\n"
           "21212 00012 12525 11850 13535 22105 21012\n"
           "31313 09608 81905\n"
           "61616 AF300 0809A TODD OB 07\n"
           "62626 MBL WND 13030 SPL 2540N08040W 1918 =\n"
           "XXCC  75191 99254 70804 08145 70844 719// 09015 50046 635// 09520\n"
           "30370 567// 10025 20620 521// 09530 10090 435// 09040 07330 399//\n"
           "09545 88999 66070 09545 410//\n"
           "31313 09608 81905\n"
           "61616 AF300 0809A TODD OB 07 =\n"
           "XXDD  7519/ 99254 70804 08145 11885 737// 22620 651// 33070 399//\n"
           "21212 11885 09018 22070 09545\n"
           "31313 09608 81905\n"
           "61616 AF300 0809A TODD OB 07 =\n"
           "NNNN";
}

/// What decoding \p text throws, or "read".
inline std::string errorOf(const std::string& text) {
    try {
        const UnLevels read(text);
    } catch (const std::string& error) {
        return error;
    }
    return "read";
}

/// The values of one field over the levels of one type, -999.0 where a level hasn't got it.
inline std::vector<double> column(const UnLevels& read, UnLevels::LEVEL_TYPE type, UnLevels::LEVEL_FIELD field) {
    std::vector<double> values;
    for (const UnLevels::Level& level : read.levels({type})) {
        values.push_back(level.value(field));
    }
    return values;
}
