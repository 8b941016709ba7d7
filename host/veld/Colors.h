#pragma once
// The drawing's indexed colours: 0 ByBlock, 1..255 the index palette, 256
// ByLayer; their names and their RGB values (0x00BBGGRR).
#include <cstdint>

#include "ulo/WString.h"

namespace veld {

class CColors {
public:
    static const CColors& GetInstance();
    /// Name of a colour index ("ByBlock", "Red", ..., "ByLayer"; the plain
    /// number for palette colours without a name; empty outside 0..256).
    ulo::WString operator[](int index) const;
};

/// RGB of a palette index 1..255 (0x00BBGGRR); 0 and 256 give white, other
/// values black.
std::uint32_t IndexToRGB(int index);

}  // namespace veld
