// qvil rle: run-length codes a file, or decodes one.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "byte_files.h"
#include "command.h"
#include "qvimage/ipps_rle.h"

namespace {

using qvil::ByteVector;

using qvil::readFile;
using qvil::writeFile;

// Pairs grow the data by half at most, so a buffer of 1.5 times the file plus 3 takes any
// stream whole (QVILCompression's operation would cut a growing stream at the file's length).
ByteVector encode(ByteVector& bytes) {
  if (bytes.empty()) return {};
  if (bytes.size() > 0x50000000) throw qvil::RunError("the file is too large");
  ByteVector stream(bytes.size() + bytes.size() / 2 + 3);
  Ipp8u* src = bytes.data();
  int srcLeft = static_cast<int>(bytes.size());
  int length = static_cast<int>(stream.size());
  const IppStatus status = ippsEncodeRLE_8u(&src, &srcLeft, stream.data(), &length);
  if (status != ippStsNoErr) throw qvil::RunError("the encoder failed with status " + std::to_string(status));
  stream.resize(static_cast<size_t>(length));
  return stream;
}

// Runs are never split across calls, so each call has room for the longest (257 bytes).
ByteVector decode(ByteVector& stream) {
  if (stream.empty()) return {};
  if (stream.size() > 0x7FFFFFFF) throw qvil::RunError("the file is too large");
  constexpr int kStep = 1 << 20;
  ByteVector out;
  Ipp8u* src = stream.data();
  int srcLeft = static_cast<int>(stream.size());
  IppStatus status = ippStsDstSizeLessExpected;
  while (status == ippStsDstSizeLessExpected) {
    const size_t before = out.size();
    out.resize(before + kStep);
    int written = kStep;
    status = ippsDecodeRLE_8u(&src, &srcLeft, out.data() + before, &written);
    out.resize(before + static_cast<size_t>(written));
  }
  if (status != ippStsNoErr) throw qvil::RunError("the decoder failed with status " + std::to_string(status));
  return out;
}

void codeFile(bool compress, const std::string& input, const std::string& output) {
  ByteVector bytes = readFile(input);
  const ByteVector result = compress ? encode(bytes) : decode(bytes);
  writeFile(output, result.data(), result.size());
  printf("%zu bytes -> %zu bytes\n", bytes.size(), result.size());
}

int runRle(const qvil::Arguments& arguments) {
  arguments.expectPositional(3);
  arguments.allowOnly({});
  const std::string& mode = arguments.positional()[0];
  if (mode != "-c" && mode != "-d")
    throw qvil::UsageError("the first argument must be -c (compress) or -d (decompress), not '" + mode + "'");
  codeFile(mode == "-c", arguments.positional()[1], arguments.positional()[2]);
  return 0;
}

const qvil::CommandRegistration registration({"rle",
                                              "Run-length code a file, or decode one",
                                              "rle (-c | -d) INPUT OUTPUT\n"
                                              "  -c  run-length code INPUT\n"
                                              "  -d  decode a stream written by -c",
                                              {},
                                              runRle});

void demoRle(const qvil::DemoContext& context) {
  const std::string source = context.directory + "/rle-source.bin";
  {
    std::ofstream file(source, std::ios::binary);
    for (int run = 0; run < 500; ++run)
      file << std::string(static_cast<size_t>(1 + run % 300), static_cast<char>(run % 5));
  }
  codeFile(true, source, context.directory + "/rle-source.rle");
  codeFile(false, context.directory + "/rle-source.rle", context.directory + "/rle-restored.bin");
  if (readFile(source) != readFile(context.directory + "/rle-restored.bin"))
    throw qvil::RunError("the run-length round trip changed the data");
  printf("run-length round trip restored rle-source.bin\n");
}

const qvil::DemoRegistration demo({72, "run-length coding", demoRle});

}  // namespace
