// qvil lzss: compresses a file to a raw LZSS stream, or decompresses one.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "byte_files.h"
#include "command.h"
#include "qvimage/QVILCompression.h"
#include "qvimage/ipps_lzss.h"

namespace {

using qvil::ByteVector;

using qvil::readFile;
using qvil::writeFile;

size_t compressFile(const std::string& input, const std::string& output) {
  const ByteVector bytes = readFile(input);
  if (bytes.size() > 0x7FFFFFFF - 64 * 1048576) throw qvil::RunError("'" + input + "' is too large");
  uint64_t length = 0;
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressLZSS(bytes.data(), bytes.size(), &length);
  writeFile(output, stream, length);
  free(stream);
  printf("%zu bytes -> %llu bytes of LZSS\n", bytes.size(), static_cast<unsigned long long>(length));
  return length;
}

// The stream has no header: decoded a megabyte a call into a growing buffer.
ByteVector decodeStream(ByteVector& stream) {
  IppLZSSState_8u* state = nullptr;
  if (ippsDecodeLZSSInitAlloc_8u(&state) != ippStsNoErr) throw qvil::RunError("no memory for the decoder");
  constexpr int kStep = 1 << 20;
  ByteVector out;
  Ipp8u none = 0;
  Ipp8u* src = stream.empty() ? &none : stream.data();
  int srcLeft = static_cast<int>(stream.size());
  IppStatus status = ippStsDstSizeLessExpected;
  while (status == ippStsDstSizeLessExpected) {
    const size_t before = out.size();
    out.resize(before + kStep);
    Ipp8u* dst = out.data() + before;
    int budget = kStep;
    status = ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &budget, state);
    out.resize(before + (kStep - budget));
  }
  ippsLZSSFree_8u(state);
  if (status != ippStsNoErr) throw qvil::RunError("the decoder failed with status " + std::to_string(status));
  return out;
}

size_t decompressFile(const std::string& input, const std::string& output) {
  ByteVector stream = readFile(input);
  if (stream.size() > 0x7FFFFFFF) throw qvil::RunError("'" + input + "' is too large");
  const ByteVector bytes = decodeStream(stream);
  writeFile(output, bytes.data(), bytes.size());
  printf("%zu bytes of LZSS -> %zu bytes\n", stream.size(), bytes.size());
  return bytes.size();
}

int runLzss(const qvil::Arguments& arguments) {
  arguments.expectPositional(3);
  arguments.allowOnly({});
  const std::string& mode = arguments.positional()[0];
  if (mode == "-c") {
    compressFile(arguments.positional()[1], arguments.positional()[2]);
  } else if (mode == "-d") {
    decompressFile(arguments.positional()[1], arguments.positional()[2]);
  } else {
    throw qvil::UsageError("the first argument must be -c (compress) or -d (decompress), not '" + mode + "'");
  }
  return 0;
}

const qvil::CommandRegistration registration(
    {"lzss",
     "Compress a file to a raw LZSS stream, or decompress one",
     "lzss (-c | -d) INPUT OUTPUT\n"
     "  -c  compress INPUT to a raw LZSS stream (QVILCompression intelCompressLZSS)\n"
     "  -d  decompress a stream written by -c",
     {},
     runLzss});

void demoLzss(const qvil::DemoContext& context) {
  const std::string text = context.directory + "/lzss-source.txt";
  {
    std::ofstream file(text, std::ios::binary);
    for (int line = 0; line < 2000; ++line) file << "line " << line % 37 << ": the quick brown fox jumps\n";
  }
  compressFile(text, context.directory + "/lzss-source.lzss");
  decompressFile(context.directory + "/lzss-source.lzss", context.directory + "/lzss-restored.txt");
  if (readFile(text) != readFile(context.directory + "/lzss-restored.txt"))
    throw qvil::RunError("the LZSS round trip changed the data");
  printf("LZSS round trip restored lzss-source.txt\n");
}

const qvil::DemoRegistration demo({71, "LZSS", demoLzss});

}  // namespace
