#include "byte_files.h"

#include <fstream>
#include <iterator>

#include "command.h"

namespace qvil {

ByteVector readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw RunError("cannot read '" + path + "'");
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& path, const unsigned char* bytes, size_t length) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(length));
  if (!file) throw RunError("cannot write '" + path + "'");
}

}  // namespace qvil
