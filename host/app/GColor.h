#pragma once
// A colour as 0x00BBGGRR (red in the low byte).
#include <cstdint>

struct GColor {
    std::uint32_t value = 0;
    constexpr GColor() = default;
    constexpr GColor(unsigned long rgb) : value(static_cast<std::uint32_t>(rgb & 0xFFFFFF)) {}
    constexpr operator unsigned long() const { return value; }
    constexpr int Red() const { return value & 0xFF; }
    constexpr int Green() const { return (value >> 8) & 0xFF; }
    constexpr int Blue() const { return (value >> 16) & 0xFF; }
    friend constexpr bool operator==(GColor a, GColor b) { return a.value == b.value; }
};
