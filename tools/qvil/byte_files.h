#ifndef QVIL_BYTE_FILES_H
#define QVIL_BYTE_FILES_H

// Whole files as bytes, for the commands that code byte streams. Failures throw RunError.

#include <cstddef>
#include <string>
#include <vector>

namespace qvil {

using ByteVector = std::vector<unsigned char>;

ByteVector readFile(const std::string& path);
void writeFile(const std::string& path, const unsigned char* bytes, size_t length);

}  // namespace qvil

#endif
