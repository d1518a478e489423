// LZSS and run-length coding on a generated mixed corpus of 18 MB (text-like, an uncompressed
// synthetic RGBA image, binary records), beside LZ4 when it is installed. Throughput counts the
// uncompressed bytes; compressed_ratio is the stream's size over the corpus's.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "qvimage/ippcore.h"
#include "qvimage/ipps_lzss.h"
#include "qvimage/ipps_rle.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_LZ4
#include <lz4.h>
#endif

namespace {

using ByteVector = std::vector<uint8_t>;

void appendText(ByteVector& corpus, size_t bytes, std::mt19937& random) {
  static const char* const words[] = {"image ",  "pixel ",  "row ",    "the ", "of ",     "compress ",
                                      "window ", "match ",  "stream ", "and ", "buffer ", "library ",
                                      "tier ",   "kernel ", ".\n",     "a "};
  const size_t end = corpus.size() + bytes;
  while (corpus.size() < end) {
    const std::string word = words[random() % 16];
    corpus.insert(corpus.end(), word.begin(), word.end());
  }
  corpus.resize(end);
}

// A 1536 x 1024 RGBA picture: smooth gradients, flat areas with opaque alpha, and light noise.
void appendImage(ByteVector& corpus, std::mt19937& random) {
  const int width = 1536, height = 1024;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const bool flat = (x / 128 + y / 128) % 3 == 0;
      const int noise = flat ? 0 : static_cast<int>(random() % 3);
      corpus.push_back(static_cast<uint8_t>(flat ? 200 : x * 255 / width + noise));
      corpus.push_back(static_cast<uint8_t>(flat ? 40 : y * 255 / height + noise));
      corpus.push_back(static_cast<uint8_t>(flat ? 90 : 128 + 100 * std::sin(x * 0.01 + y * 0.02)));
      corpus.push_back(255);
    }
}

// Records of small integers, offsets and a little noise, as binary files often are.
void appendBinary(ByteVector& corpus, size_t bytes, std::mt19937& random) {
  const size_t end = corpus.size() + bytes;
  uint32_t offset = 0x1000;
  while (corpus.size() < end) {
    offset += 4 + random() % 64;
    const uint8_t record[16] = {0x48,
                                0x8B,
                                static_cast<uint8_t>(random() % 8),
                                0,
                                static_cast<uint8_t>(offset),
                                static_cast<uint8_t>(offset >> 8),
                                0,
                                0,
                                static_cast<uint8_t>(random() % 4),
                                0,
                                0,
                                0,
                                static_cast<uint8_t>(random()),
                                0xE8,
                                0,
                                0};
    corpus.insert(corpus.end(), record, record + 16);
  }
  corpus.resize(end);
}

const ByteVector& corpus() {
  static const ByteVector bytes = [] {
    std::mt19937 random(2024);
    ByteVector all;
    appendText(all, 6 << 20, random);
    appendImage(all, random);
    appendBinary(all, 6 << 20, random);
    return all;
  }();
  return bytes;
}

void report(benchmark::State& state, size_t streamBytes) {
  qvbench::countBytes(state, corpus().size());
  state.counters["compressed_ratio"] = static_cast<double>(streamBytes) / static_cast<double>(corpus().size());
}

int lzssCompress(const ByteVector& source, ByteVector& stream) {
  stream.resize(source.size() + source.size() / 8 + 16);
  int length = static_cast<int>(stream.size());
  CompressLZSS(const_cast<uint8_t*>(source.data()), static_cast<int>(source.size()), stream.data(), &length);
  return length;
}

int rleCompress(const ByteVector& source, ByteVector& stream) {
  stream.resize(source.size() + source.size() / 2 + 3);
  int sourceLeft = static_cast<int>(source.size());
  int length = static_cast<int>(stream.size());
  EncodeRLE(const_cast<uint8_t*>(source.data()), &sourceLeft, stream.data(), &length);
  return length;
}

void BM_LzssEncode(benchmark::State& state) {
  qvbench::forceTier(state);
  ByteVector stream;
  int length = 0;
  for (auto _ : state) length = lzssCompress(corpus(), stream);
  report(state, static_cast<size_t>(length));
}

void BM_LzssDecode(benchmark::State& state) {
  qvbench::forceTier(state);
  ByteVector stream;
  const int length = lzssCompress(corpus(), stream);
  ByteVector out(corpus().size());
  for (auto _ : state) {
    int decoded = 0;
    DecompressLZSS(stream.data(), length, out.data(), &decoded);
    benchmark::DoNotOptimize(decoded);
  }
  report(state, static_cast<size_t>(length));
}

void BM_RleEncode(benchmark::State& state) {
  qvbench::forceTier(state);
  ByteVector stream;
  int length = 0;
  for (auto _ : state) length = rleCompress(corpus(), stream);
  report(state, static_cast<size_t>(length));
}

void BM_RleDecode(benchmark::State& state) {
  qvbench::forceTier(state);
  ByteVector stream;
  const int length = rleCompress(corpus(), stream);
  ByteVector out(corpus().size());
  for (auto _ : state) {
    int decoded = static_cast<int>(out.size());
    DecodeRLE(stream.data(), length, out.data(), &decoded);
    benchmark::DoNotOptimize(decoded);
  }
  report(state, static_cast<size_t>(length));
}

BENCHMARK(BM_LzssEncode)->Arg(0)->Arg(3)->ArgName("tier")->Unit(benchmark::kMillisecond)->MinTime(0.2);
BENCHMARK(BM_LzssDecode)->Arg(0)->Arg(3)->ArgName("tier")->Unit(benchmark::kMillisecond)->MinTime(0.2);
BENCHMARK(BM_RleEncode)->Arg(0)->Arg(3)->ArgName("tier")->Unit(benchmark::kMillisecond)->MinTime(0.2);
BENCHMARK(BM_RleDecode)->Arg(0)->Arg(3)->ArgName("tier")->Unit(benchmark::kMillisecond)->MinTime(0.2);

#ifdef QV_HAVE_LZ4
int lz4Compress(const ByteVector& source, ByteVector& stream) {
  stream.resize(static_cast<size_t>(LZ4_compressBound(static_cast<int>(source.size()))));
  return LZ4_compress_default(reinterpret_cast<const char*>(source.data()), reinterpret_cast<char*>(stream.data()),
                              static_cast<int>(source.size()), static_cast<int>(stream.size()));
}

void BM_Lz4Compress(benchmark::State& state) {
  ByteVector stream;
  int length = 0;
  for (auto _ : state) length = lz4Compress(corpus(), stream);
  report(state, static_cast<size_t>(length));
}

void BM_Lz4Decompress(benchmark::State& state) {
  ByteVector stream;
  const int length = lz4Compress(corpus(), stream);
  ByteVector out(corpus().size());
  for (auto _ : state)
    benchmark::DoNotOptimize(LZ4_decompress_safe(reinterpret_cast<const char*>(stream.data()),
                                                 reinterpret_cast<char*>(out.data()), length,
                                                 static_cast<int>(out.size())));
  report(state, static_cast<size_t>(length));
}

BENCHMARK(BM_Lz4Compress)->Unit(benchmark::kMillisecond)->MinTime(0.2);
BENCHMARK(BM_Lz4Decompress)->Unit(benchmark::kMillisecond)->MinTime(0.2);
#endif

}  // namespace

BENCHMARK_MAIN();
