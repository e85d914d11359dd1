// How the settings of an image read for people.
#pragma once

#include <array>
#include <cstdint>

inline constexpr std::array<const char*, 12> ChipLabels{"ZR11",      "ZR12",       "ZR13", "ZR14",
                                                        "ZR15",      "ZR16",       "ZR17", "ZR18(MCU)",
                                                        "ZR18(RGB)", "ZR18(QSPI)", "ZR19", "ZR20"};
inline constexpr std::array<const char*, 9> FlashSizeLabels{"2MB",  "4MB",   "8MB",   "16MB", "32MB",
                                                            "64MB", "128MB", "256MB", "512MB"};
inline constexpr std::array<const char*, 10> BaudRateLabels{
    "9600", "19200", "38400", "57600", "115200", "230400", "256000", "460800", "921600", "1382400"};
inline constexpr std::array<const char*, 2> ColourFormatLabels{"aRGB4444", "aRGB8888"};

/// The label of that index, or `otherwise` for an index that the table does not have.
template <std::size_t N>
constexpr const char* LabelOf(const std::array<const char*, N>& labels, std::size_t index,
                              const char* otherwise) {
    return index < N ? labels[index] : otherwise;
}
