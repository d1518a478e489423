#include "warp_options.h"

#include <cstdlib>

#include "command.h"

namespace qvil {

std::vector<double> parseNumberList(const std::string& what, const std::string& text, size_t count) {
  std::vector<double> numbers;
  size_t start = 0;
  while (start <= text.size()) {
    const size_t comma = text.find(',', start);
    const std::string item = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
    char* end = nullptr;
    const double value = std::strtod(item.c_str(), &end);
    if (item.empty() || *end != '\0') throw UsageError(what + ": '" + item + "' is not a number");
    numbers.push_back(value);
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  if (numbers.size() != count)
    throw UsageError(what + " takes " + std::to_string(count) + " numbers separated by commas, not " +
                     std::to_string(numbers.size()));
  return numbers;
}

int32_t parseWarpMode(const std::string& text, bool allowNearest) {
  if (text == "nearest" && allowNearest) return 0;
  if (text == "linear") return 1;
  if (text == "cubic") return 2;
  throw UsageError(std::string("--mode must be ") + (allowNearest ? "nearest, " : "") + "linear or cubic, not '" +
                   text + "'");
}

}  // namespace qvil
