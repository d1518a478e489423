// Flood fill of a 4096 x 4096 image whose region, values 200..255, covers most of it, beside
// OpenCV's cv::floodFill with 4-connectivity and a fixed range on the same image, measured in
// the same run. Throughput in pixels of the image per second (items_per_second); each iteration restores the image
// first, outside the timing.

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

constexpr int kSide = 4096;
constexpr int kSeedX = 2048, kSeedY = 2048;
// Items are pixels of the image: items_per_second reads as pixels per second.
void countPixels(benchmark::State& state) {
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * kSide * kSide);
}

constexpr uint8_t kSeedValue = 227, kNewValue = 0, kLowDelta = 27, kHighDelta = 28;  // range 200..255

// Values 200..255 with short walls of value 40 every 64 rows and columns, which the region
// flows around.
const std::vector<uint8_t>& pristineImage() {
  static const std::vector<uint8_t> image = [] {
    std::vector<uint8_t> pixels(static_cast<size_t>(kSide) * kSide);
    std::mt19937 random(7);
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        const bool wall = (y % 64 == 32 && x % 64 < 40) || (x % 64 == 32 && y % 64 < 20);
        pixels[static_cast<size_t>(y) * kSide + x] = wall ? 40 : static_cast<uint8_t>(200 + random() % 56);
      }
    pixels[static_cast<size_t>(kSeedY) * kSide + kSeedX] = kSeedValue;
    return pixels;
  }();
  return image;
}

void BM_ippiFloodFill_Range4Con_8u_C1IR(benchmark::State& state) {
  qvbench::forceTier(state, 0);
  std::vector<uint8_t> image(pristineImage().size());
  int scratchBytes = 0;
  ippiFloodFillGetSize_Grad({kSide, kSide}, &scratchBytes);
  std::vector<uint8_t> scratch(static_cast<size_t>(scratchBytes));
  IppiConnectedComp region{};
  for (auto _ : state) {
    state.PauseTiming();
    std::memcpy(image.data(), pristineImage().data(), image.size());
    state.ResumeTiming();
    ippiFloodFill_Range4Con_8u_C1IR(image.data(), kSide, {kSide, kSide}, {kSeedX, kSeedY}, kNewValue, kLowDelta,
                                    kHighDelta, &region, scratch.data());
    benchmark::DoNotOptimize(image.data());
    benchmark::ClobberMemory();
  }
  countPixels(state);
  state.counters["filled%"] = 100.0 * region.area / (static_cast<double>(kSide) * kSide);
}

#ifdef QV_HAVE_OPENCV
void BM_cvFloodFill(benchmark::State& state) {
  cv::setNumThreads(1);
  cv::Mat image(kSide, kSide, CV_8UC1);
  int area = 0;
  for (auto _ : state) {
    state.PauseTiming();
    std::memcpy(image.data, pristineImage().data(), pristineImage().size());
    state.ResumeTiming();
    cv::Rect box;
    area = cv::floodFill(image, cv::Point(kSeedX, kSeedY), cv::Scalar(kNewValue), &box, cv::Scalar(kLowDelta),
                         cv::Scalar(kHighDelta), 4 | cv::FLOODFILL_FIXED_RANGE);
    benchmark::DoNotOptimize(image.data);
    benchmark::ClobberMemory();
  }
  countPixels(state);
  state.counters["filled%"] = 100.0 * area / (static_cast<double>(kSide) * kSide);
}
BENCHMARK(BM_cvFloodFill)->Unit(benchmark::kMillisecond)->MinTime(0.5);
#endif

BENCHMARK(BM_ippiFloodFill_Range4Con_8u_C1IR)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->MinTime(0.5);

}  // namespace

BENCHMARK_MAIN();
