#ifndef QVIL_WARP_OPTIONS_H
#define QVIL_WARP_OPTIONS_H

#include <cstdint>
#include <string>
#include <vector>

namespace qvil {

// The options of the rotation and warp commands.

// Exactly count numbers separated by commas ("1,0,2.5,0,1,-3"), or a UsageError naming what.
std::vector<double> parseNumberList(const std::string& what, const std::string& text, size_t count);

// --mode as the public operations number it: nearest 0 (where allowed), linear 1, cubic 2.
int32_t parseWarpMode(const std::string& text, bool allowNearest);

}  // namespace qvil

#endif
