// Mirror of an 8192 x 8192 RGBA image (256 MiB) on each axis and tier, beside memcpy of the same
// bytes and OpenCV's cv::flip of the same image, measured in the same run. Throughput counts the
// image bytes once, as for memcpy.

#include <benchmark/benchmark.h>

#include <cstring>

#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_OPENCV
#include <opencv2/core.hpp>
#endif

namespace {

constexpr int kSide = 8192;
constexpr size_t kImageBytes = static_cast<size_t>(kSide) * kSide * 4;

// The two images, made once and shared by every benchmark of the program.
qvbench::AlignedBlock& sourceImage() {
  static qvbench::AlignedBlock block(kImageBytes, 3);
  return block;
}

qvbench::AlignedBlock& destinationImage() {
  static qvbench::AlignedBlock block(kImageBytes, 4);
  return block;
}

// Arguments: axis, tier.
void BM_ippiMirror_8u_C4R(benchmark::State& state) {
  qvbench::forceTier(state, 1);
  const int axis = static_cast<int>(state.range(0));
  uint8_t* from = sourceImage().data();
  uint8_t* to = destinationImage().data();
  for (auto _ : state) {
    ippiMirror_8u_C4R(from, 4 * kSide, to, 4 * kSide, {kSide, kSide}, axis);
    benchmark::DoNotOptimize(to);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kImageBytes);
}

// In place: the same image mirrored over and over.
void BM_ippiMirror_8u_C4R_inPlace(benchmark::State& state) {
  qvbench::forceTier(state, 1);
  const int axis = static_cast<int>(state.range(0));
  uint8_t* image = destinationImage().data();
  for (auto _ : state) {
    ippiMirror_8u_C4R(image, 4 * kSide, image, 4 * kSide, {kSide, kSide}, axis);
    benchmark::DoNotOptimize(image);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kImageBytes);
}

void BM_memcpy(benchmark::State& state) {
  uint8_t* from = sourceImage().data();
  uint8_t* to = destinationImage().data();
  for (auto _ : state) {
    std::memcpy(to, from, kImageBytes);
    benchmark::DoNotOptimize(to);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kImageBytes);
}

#ifdef QV_HAVE_OPENCV
// Argument: axis, mapped to OpenCV's flip code (0 rows reversed, 1 columns reversed, -1 both).
void BM_cvFlip(benchmark::State& state) {
  const int flipCodes[] = {0, 1, -1};
  const cv::Mat from(kSide, kSide, CV_8UC4, sourceImage().data());
  cv::Mat to(kSide, kSide, CV_8UC4, destinationImage().data());
  cv::setNumThreads(1);
  for (auto _ : state) {
    cv::flip(from, to, flipCodes[state.range(0)]);
    benchmark::DoNotOptimize(to.data);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kImageBytes);
}
BENCHMARK(BM_cvFlip)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->MinTime(0.3);
#endif

BENCHMARK(BM_memcpy)->Unit(benchmark::kMillisecond)->MinTime(0.3);
BENCHMARK(BM_ippiMirror_8u_C4R)->ArgsProduct({{0, 1, 2}, {0, 3}})->Unit(benchmark::kMillisecond)->MinTime(0.3);
BENCHMARK(BM_ippiMirror_8u_C4R_inPlace)->ArgsProduct({{0, 1, 2}, {3}})->Unit(benchmark::kMillisecond)->MinTime(0.3);

}  // namespace

BENCHMARK_MAIN();
