#ifndef QV_PLATFORM_TEXT_H
#define QV_PLATFORM_TEXT_H

#include <string>

#include "qvimage/QVILTypes.h"

namespace qv::platform {

// The shortest decimal form that reads back to the same double: 640, 0.5, -3.
std::string shortestDecimal(double value);
// "{w, h}" and "{x, y}".
std::string stringFromSize(CGSize size);
std::string stringFromPoint(CGPoint point);

}  // namespace qv::platform

#endif
