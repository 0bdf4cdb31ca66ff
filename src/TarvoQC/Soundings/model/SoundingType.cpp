#include "SoundingType.h"

std::string SoundingTypeName(SoundingType type) {
    switch (type) {
    case SoundingType::Unknown:
        return "Unknown";
    case SoundingType::Mirra:
        return "Mirra";
    case SoundingType::Trove:
        return "Trove";
    case SoundingType::Ombra:
    case SoundingType::OmbraOther:
        return "Ombra";
    case SoundingType::Pelo:
        return "Pelo";
    case SoundingType::Zor:
        return "Zor";
    case SoundingType::Frd:
        return "Frd";
    case SoundingType::Csv:
        return "Csv";
    case SoundingType::Wmo:
        return "Wmo";
    case SoundingType::Mw41:
        return "Mw41";
    }
    return "Unknown";
}
