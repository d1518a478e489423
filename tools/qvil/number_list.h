#ifndef QVIL_NUMBER_LIST_H
#define QVIL_NUMBER_LIST_H

#include <string>
#include <vector>

namespace qvil {

// Exactly count numbers separated by commas ("1,0,2.5,0,1,-3"), or a UsageError naming what.
std::vector<double> parseNumberList(const std::string& what, const std::string& text, size_t count);

}  // namespace qvil

#endif
