// CRC-32 and Adler-32 per tier on 64 KiB and 64 MiB, beside libdeflate's when it is installed.
// Each of our runs also reports ratio_vs_libdeflate: our throughput over libdeflate's for the
// same buffer, measured in the same process.

#include <benchmark/benchmark.h>

#include <time.h>

#include <map>

#include "qvimage/ippcore.h"
#include "qvimage/ipps_checksum.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_LIBDEFLATE
#include <libdeflate.h>
#endif

namespace {

constexpr int64_t kSmall = 64 << 10;
constexpr int64_t kLarge = 64 << 20;
constexpr Ipp64u kPclmulqdq = 0x800;

const qvbench::AlignedBlock& blockOf(size_t size) {
  static std::map<size_t, qvbench::AlignedBlock> blocks;
  auto found = blocks.find(size);
  if (found == blocks.end()) found = blocks.emplace(size, qvbench::AlignedBlock(size, 7)).first;
  return found->second;
}

// Arguments: tier index, buffer size, and whether PCLMULQDQ stays in the mask (tiers y8, e9).
void forceRoad(benchmark::State& state) {
  qvbench::forceTier(state, 0);
  const Ipp64u enabled = ippGetEnabledCpuFeatures();
  const bool pclmul = state.range(2) != 0;
  ippSetCpuFeaturesMask(pclmul ? enabled | kPclmulqdq : enabled & ~kPclmulqdq);
  if (state.range(0) >= 2)
    state.SetLabel(std::string(qvbench::tierAt(state.range(0)).name) + (pclmul ? "+pclmul" : "-pclmul"));
}

// Processor time of this thread: the machine is shared, so wall time says little.
double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

#ifdef QV_HAVE_LIBDEFLATE
// Bytes a second of a peer function over a buffer, timed for about a tenth of a second.
template <typename Checksum>
double peerBytesPerSecond(const qvbench::AlignedBlock& block, Checksum checksum) {
  const double start = threadSeconds();
  size_t bytes = 0;
  double seconds = 0;
  do {
    benchmark::DoNotOptimize(checksum(block.data(), block.size()));
    bytes += block.size();
    seconds = threadSeconds() - start;
  } while (seconds < 0.1);
  return static_cast<double>(bytes) / seconds;
}

template <typename Checksum>
void reportRatio(benchmark::State& state, const qvbench::AlignedBlock& block, Checksum checksum, double ourSeconds) {
  const double ours = static_cast<double>(state.iterations()) * static_cast<double>(block.size()) / ourSeconds;
  state.counters["ratio_vs_libdeflate"] = ours / peerBytesPerSecond(block, checksum);
}
#endif

void BM_Crc32(benchmark::State& state) {
  forceRoad(state);
  const qvbench::AlignedBlock& block = blockOf(static_cast<size_t>(state.range(1)));
  const double start = threadSeconds();
  for (auto _ : state) {
    Ipp32u crc = 0;
    ippsCRC32_8u(block.data(), static_cast<int>(block.size()), &crc);
    benchmark::DoNotOptimize(crc);
  }
  const double elapsed = threadSeconds() - start;
  qvbench::countBytes(state, block.size());
#ifdef QV_HAVE_LIBDEFLATE
  reportRatio(
      state, block, [](const uint8_t* p, size_t n) { return libdeflate_crc32(0, p, n); }, elapsed);
#else
  (void)elapsed;
#endif
}

void BM_Adler32(benchmark::State& state) {
  forceRoad(state);
  const qvbench::AlignedBlock& block = blockOf(static_cast<size_t>(state.range(1)));
  const double start = threadSeconds();
  for (auto _ : state) {
    Ipp32u adler = 1;
    ippsAdler32_8u(block.data(), static_cast<Ipp32u>(block.size()), &adler);
    benchmark::DoNotOptimize(adler);
  }
  const double elapsed = threadSeconds() - start;
  qvbench::countBytes(state, block.size());
#ifdef QV_HAVE_LIBDEFLATE
  reportRatio(
      state, block, [](const uint8_t* p, size_t n) { return libdeflate_adler32(1, p, n); }, elapsed);
#else
  (void)elapsed;
#endif
}

void roads(benchmark::internal::Benchmark* benchmark) {
  for (int64_t size : {kSmall, kLarge}) {
    for (int64_t tier = 0; tier < 4; ++tier) {
      benchmark->Args({tier, size, 0});
      if (tier >= 2) benchmark->Args({tier, size, 1});
    }
  }
  benchmark->ArgNames({"tier", "bytes", "pclmul"})->MinTime(0.05);
}

BENCHMARK(BM_Crc32)->Apply(roads);
BENCHMARK(BM_Adler32)->Apply(roads);

#ifdef QV_HAVE_LIBDEFLATE
void BM_LibdeflateCrc32(benchmark::State& state) {
  const qvbench::AlignedBlock& block = blockOf(static_cast<size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(libdeflate_crc32(0, block.data(), block.size()));
  qvbench::countBytes(state, block.size());
}

void BM_LibdeflateAdler32(benchmark::State& state) {
  const qvbench::AlignedBlock& block = blockOf(static_cast<size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(libdeflate_adler32(1, block.data(), block.size()));
  qvbench::countBytes(state, block.size());
}

BENCHMARK(BM_LibdeflateCrc32)->Arg(kSmall)->Arg(kLarge)->ArgName("bytes")->MinTime(0.05);
BENCHMARK(BM_LibdeflateAdler32)->Arg(kSmall)->Arg(kLarge)->ArgName("bytes")->MinTime(0.05);
#endif

}  // namespace

BENCHMARK_MAIN();
