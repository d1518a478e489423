// Depth conversion and pixel arithmetic on 4096 x 4096 RGBA images, on every tier. The
// conversions count the bytes they write, beside memcpy writing the same number of bytes in the
// same run; OpenCV's convertTo, multiply and minMaxLoc are measured beside them when found.

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_OPENCV
#include <opencv2/core.hpp>
#endif

namespace {

constexpr int kSide = 4096;
constexpr size_t kChannels = static_cast<size_t>(kSide) * kSide * 4;  // channels of one image
constexpr IppiSize kSize{kSide, kSide};
constexpr double kMinTime = 0.2;

void BM_memcpy(benchmark::State& state) {
  const size_t bytes = static_cast<size_t>(state.range(0));
  qvbench::AlignedBlock src(bytes, 1), dst(bytes, 2);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), bytes);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, bytes);
}

void BM_ippiScale_8u16u_C4R(benchmark::State& state) {
  qvbench::forceTier(state);
  qvbench::AlignedBlock src(kChannels, 1), dst(2 * kChannels, 2);
  for (auto _ : state) {
    ippiScale_8u16u_C4R(src.data(), 4 * kSide, reinterpret_cast<Ipp16u*>(dst.data()), 8 * kSide, kSize);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, 2 * kChannels);
}

// The second argument is the hint: 0 the fast form, 2 the accurate form.
void BM_ippiScale_16u8u_C4R(benchmark::State& state) {
  qvbench::forceTier(state);
  const int hint = static_cast<int>(state.range(1));
  qvbench::AlignedBlock src(2 * kChannels, 1), dst(kChannels, 2);
  for (auto _ : state) {
    ippiScale_16u8u_C4R(reinterpret_cast<const Ipp16u*>(src.data()), 8 * kSide, dst.data(), 4 * kSide, kSize, hint);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kChannels);
  state.SetLabel(std::string(qvbench::tierAt(state.range(0)).name) + (hint == 2 ? " accurate" : " fast"));
}

void BM_ippiMulScale_8u_C4IR(benchmark::State& state) {
  qvbench::forceTier(state);
  qvbench::AlignedBlock src(kChannels, 1), dst(kChannels, 2);
  for (auto _ : state) {
    ippiMulScale_8u_C4IR(src.data(), 4 * kSide, dst.data(), 4 * kSide, kSize);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kChannels);
}

void BM_ippiMin_8u_C4R(benchmark::State& state) {
  qvbench::forceTier(state);
  qvbench::AlignedBlock src(kChannels, 1);
  Ipp8u minimum[4];
  for (auto _ : state) {
    ippiMin_8u_C4R(src.data(), 4 * kSide, kSize, minimum);
    benchmark::DoNotOptimize(minimum);
  }
  qvbench::countBytes(state, kChannels);
}

BENCHMARK(BM_memcpy)->Arg(2 * kChannels)->Arg(kChannels)->MinTime(kMinTime);
BENCHMARK(BM_ippiScale_8u16u_C4R)->DenseRange(0, 3)->MinTime(kMinTime);
BENCHMARK(BM_ippiScale_16u8u_C4R)->ArgsProduct({{0, 1, 2, 3}, {0, 2}})->MinTime(kMinTime);
BENCHMARK(BM_ippiMulScale_8u_C4IR)->DenseRange(0, 3)->MinTime(kMinTime);
BENCHMARK(BM_ippiMin_8u_C4R)->DenseRange(0, 3)->MinTime(kMinTime);

#ifdef QV_HAVE_OPENCV
void BM_opencv_convertTo_8u16u(benchmark::State& state) {
  cv::Mat src(kSide, kSide, CV_8UC4, cv::Scalar(1, 2, 3, 4)), dst(kSide, kSide, CV_16UC4);
  for (auto _ : state) {
    src.convertTo(dst, CV_16UC4, 257.0);
    benchmark::DoNotOptimize(dst.data);
  }
  qvbench::countBytes(state, 2 * kChannels);
}

void BM_opencv_convertTo_16u8u(benchmark::State& state) {
  cv::Mat src(kSide, kSide, CV_16UC4, cv::Scalar(100, 2000, 30000, 65535)), dst(kSide, kSide, CV_8UC4);
  for (auto _ : state) {
    src.convertTo(dst, CV_8UC4, 1.0 / 257.0);
    benchmark::DoNotOptimize(dst.data);
  }
  qvbench::countBytes(state, kChannels);
}

void BM_opencv_multiply_scaled(benchmark::State& state) {
  cv::Mat a(kSide, kSide, CV_8UC4, cv::Scalar(10, 20, 30, 40)), b(kSide, kSide, CV_8UC4, cv::Scalar(200, 100, 50, 25));
  for (auto _ : state) {
    cv::multiply(a, b, b, 1.0 / 255.0);
    benchmark::DoNotOptimize(b.data);
  }
  qvbench::countBytes(state, kChannels);
}

void BM_opencv_minMaxLoc(benchmark::State& state) {
  cv::Mat plane(kSide, 4 * kSide, CV_8UC1, cv::Scalar(9));
  double minimum = 0;
  for (auto _ : state) {
    cv::minMaxLoc(plane, &minimum);
    benchmark::DoNotOptimize(minimum);
  }
  qvbench::countBytes(state, kChannels);
}

// OpenCV runs on its own threads unless told otherwise; these figures are single-threaded.
void singleThreadedOpenCV() { cv::setNumThreads(1); }

BENCHMARK(BM_opencv_convertTo_8u16u)->Setup([](const benchmark::State&) { singleThreadedOpenCV(); })->MinTime(kMinTime);
BENCHMARK(BM_opencv_convertTo_16u8u)->Setup([](const benchmark::State&) { singleThreadedOpenCV(); })->MinTime(kMinTime);
BENCHMARK(BM_opencv_multiply_scaled)->Setup([](const benchmark::State&) { singleThreadedOpenCV(); })->MinTime(kMinTime);
BENCHMARK(BM_opencv_minMaxLoc)->Setup([](const benchmark::State&) { singleThreadedOpenCV(); })->MinTime(kMinTime);
#endif

}  // namespace

BENCHMARK_MAIN();
