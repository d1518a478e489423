#include "platform/text.h"

#include <charconv>

namespace qv::platform {

std::string shortestDecimal(double value) {
  char digits[64];
  const auto result = std::to_chars(digits, digits + sizeof digits, value);
  return std::string(digits, result.ptr);
}

namespace {

std::string braced(double first, double second) {
  std::string text("{");
  text.append(shortestDecimal(first)).append(", ").append(shortestDecimal(second)).append("}");
  return text;
}

}  // namespace

std::string stringFromSize(CGSize size) { return braced(size.width, size.height); }

std::string stringFromPoint(CGPoint point) { return braced(point.x, point.y); }

}  // namespace qv::platform
