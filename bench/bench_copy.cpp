// Copy, fill and RGBA copy throughput on every tier, each beside its baseline measured in the
// same run: memcpy of the same bytes for the copy, memset for the fill, and the single-threaded
// public copy for the strip decomposition.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"
#include "support/bench_support.h"

namespace {

// An RGBA image of side x side pixels, rows packed: the same bytes a memcpy would move.
size_t imageBytes(int64_t side) { return static_cast<size_t>(side) * static_cast<size_t>(side) * 4; }

// A page-aligned block with room for the destination offset, so that the page offsets of source
// and destination are fixed: 0 apart, or the destination 64 bytes above the source, the layout
// that sends the SSE tiers' cached copy backward.
struct PageBlock {
  explicit PageBlock(size_t bytes) : base(static_cast<uint8_t*>(std::aligned_alloc(4096, bytes + 4096))) {
    std::memset(base, 1, bytes + 4096);
  }
  ~PageBlock() { std::free(base); }
  PageBlock(const PageBlock&) = delete;
  PageBlock& operator=(const PageBlock&) = delete;
  uint8_t* base;
};

void BM_ippiCopy_8u_C4R(benchmark::State& state) {
  qvbench::forceTier(state, 1);
  const int side = static_cast<int>(state.range(0));
  const size_t bytes = imageBytes(side);
  PageBlock src(bytes), dst(bytes);
  uint8_t* to = dst.base + state.range(2);
  const IppiSize size{side, side};
  for (auto _ : state) {
    ippiCopy_8u_C4R(src.base, 4 * side, to, 4 * side, size);
    benchmark::DoNotOptimize(to);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, bytes);
}

void BM_memcpy(benchmark::State& state) {
  const size_t bytes = imageBytes(state.range(0));
  PageBlock src(bytes), dst(bytes);
  uint8_t* to = dst.base + state.range(1);
  for (auto _ : state) {
    std::memcpy(to, src.base, bytes);
    benchmark::DoNotOptimize(to);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, bytes);
}

void BM_ippiSet_8u_C4R(benchmark::State& state) {
  qvbench::forceTier(state, 1);
  const int side = static_cast<int>(state.range(0));
  const size_t bytes = imageBytes(side);
  qvbench::AlignedBlock dst(bytes, 2);
  const Ipp8u value[4] = {7, 7, 7, 7};
  const IppiSize size{side, side};
  for (auto _ : state) {
    ippiSet_8u_C4R(value, dst.data(), 4 * side, size);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, bytes);
}

void BM_memset(benchmark::State& state) {
  const size_t bytes = imageBytes(state.range(0));
  qvbench::AlignedBlock dst(bytes, 2);
  for (auto _ : state) {
    std::memset(dst.data(), 7, bytes);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, bytes);
}

// The public RGBA copy of 4096 x 4096 pixels with the option word of the second argument:
// 0 runs on the calling thread, 1 splits over the logical processors.
void BM_imageLibCopyRGBA(benchmark::State& state) {
  QVILConversion* conversion = QVILConversion::sharedInstance();
  qvbench::forceTier(state, 1);
  const int64_t side = 4096;
  const size_t bytes = imageBytes(side);
  qvbench::AlignedBlock src(bytes, 1), dst(bytes, 2);
  const vImage_Buffer from{src.data(), static_cast<size_t>(side), static_cast<size_t>(side),
                           4 * static_cast<size_t>(side)};
  const vImage_Buffer to{dst.data(), static_cast<size_t>(side), static_cast<size_t>(side),
                         4 * static_cast<size_t>(side)};
  const auto options = static_cast<uint32_t>(state.range(0));
  for (auto _ : state) {
    conversion->imageLibCopyRGBA(&from, &to, options, 8);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, bytes);
  state.SetLabel(std::string(qvbench::tierAt(state.range(1)).name) + (options == 0 ? " one thread" : " strips"));
}

constexpr double kMinTime = 0.2;

// Single-threaded work is timed by processor time, which a busy machine disturbs less than the
// wall clock; the strip copy by the wall clock, since its point is the threads.
// Arguments: side, tier (copy only), destination offset in its page.
BENCHMARK(BM_memcpy)->ArgsProduct({{8192, 64}, {0}})->Args({64, 64})->MinTime(kMinTime);
BENCHMARK(BM_ippiCopy_8u_C4R)
    ->ArgsProduct({{8192, 64}, {0, 1, 2, 3}, {0}})
    ->ArgsProduct({{64}, {0, 1, 2, 3}, {64}})
    ->MinTime(kMinTime);
BENCHMARK(BM_memset)->Arg(8192)->Arg(64)->MinTime(kMinTime);
BENCHMARK(BM_ippiSet_8u_C4R)->ArgsProduct({{8192, 64}, {0, 1, 2, 3}})->MinTime(kMinTime);
BENCHMARK(BM_imageLibCopyRGBA)->ArgsProduct({{0, 1}, {0, 1, 2, 3}})->MinTime(kMinTime)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
