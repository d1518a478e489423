// qvil checksum: the Adler-32 and CRC-32 of a file, and QVILHash's text for it.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "byte_files.h"
#include "command.h"
#include "qvimage/QVILHash.h"
#include "qvimage/zlib.h"

namespace {

void printChecksums(const std::string& path) {
  const std::vector<unsigned char> bytes = qvil::readFile(path);
  if (bytes.size() > 0x7FFFFFFF) throw qvil::RunError("'" + path + "' is larger than 2 GiB");
  const auto length = static_cast<uInt>(bytes.size());
  const std::string text =
      QVILHash::sharedInstance()->imageLibComputeFastestChecksumForData(bytes.data(), static_cast<int32_t>(length));
  printf("bytes:     %zu\n", bytes.size());
  printf("adler-32:  %08lx\n", adler32(1, bytes.data(), length));
  printf("crc-32:    %08lx\n", crc32(0, bytes.data(), length));
  printf("fastest:   %s (%s, bytes lowest first)\n", text.c_str(), length > 1023 ? "adler-32" : "crc-32");
}

int runChecksum(const qvil::Arguments& arguments) {
  arguments.expectPositional(1);
  arguments.allowOnly({});
  printChecksums(arguments.positional()[0]);
  return 0;
}

const qvil::CommandRegistration registration(
    {"checksum",
     "Adler-32 and CRC-32 of a file, and the quick checksum text of QVILHash",
     "checksum FILE\n"
     "  The quick checksum is the CRC-32 up to 1023 bytes and the Adler-32 from 1024 on,\n"
     "  written as its four bytes lowest first.",
     {},
     runChecksum});

void demoChecksum(const qvil::DemoContext& context) {
  const std::string path = context.directory + "/digits.txt";
  std::ofstream(path, std::ios::binary) << "123456789";
  printChecksums(path);
  printf("the CRC-32 of the nine digits is the check value cbf43926\n");
}

const qvil::DemoRegistration demo({70, "checksums", demoChecksum});

}  // namespace
