// Rotation, affine and perspective warps of a 3840 x 2160 picture, one thread, beside OpenCV
// doing the same work with the same matrix in the same run (cv::warpAffine, cv::warpPerspective,
// cv::rotate), and memcpy of the same bytes for the quarter turn. Throughput counts the source's
// bytes once. The last argument of the library's benchmarks is the tier (0 m7 .. 3 e9).

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>

#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

constexpr int kWidth = 3840, kHeight = 2160;
constexpr size_t kPixels = static_cast<size_t>(kWidth) * kHeight;

qvbench::AlignedBlock& rgbaSource() {
  static qvbench::AlignedBlock block(kPixels * 4, 3);
  return block;
}

qvbench::AlignedBlock& planeSource() {
  static qvbench::AlignedBlock block(kPixels, 5);
  return block;
}

// Room for the largest destination: the bounding box of a 30-degree turn, or the turned picture.
qvbench::AlignedBlock& destination() {
  static qvbench::AlignedBlock block(static_cast<size_t>(4500) * 3900 * 4, 4);
  return block;
}

// The turn by 30 degrees that the public rotation makes: shifted so that the turned picture's
// bounding box starts at (0, 0); the destination is that box.
struct Turn {
  double coeffs[2][3];
  int width, height;
};

const Turn& turnBy30() {
  static const Turn turn = [] {
    Turn t{};
    double bound[2][2];
    ippiGetRotateBound({0, 0, kWidth, kHeight}, bound, 30, 0, 0);
    const double radians = 30 * 3.141592653589793 / 180;
    const double c = std::cos(radians), s = std::sin(radians);
    t.coeffs[0][0] = c, t.coeffs[0][1] = s, t.coeffs[0][2] = -bound[0][0];
    t.coeffs[1][0] = -s, t.coeffs[1][1] = c, t.coeffs[1][2] = -bound[0][1];
    t.width = static_cast<int>(bound[1][0] - bound[0][0]) + 1;
    t.height = static_cast<int>(bound[1][1] - bound[0][1]) + 1;
    return t;
  }();
  return turn;
}

// A moderate tilt: the picture's corners pulled in by up to 200 pixels.
const double (&tiltCoefficients())[3][3] {
  static double coeffs[3][3];
  static const bool made = [] {
    const double quad[4][2] = {{200, 100}, {kWidth - 201.0, 0}, {kWidth - 1.0, kHeight - 1.0}, {0, kHeight - 101.0}};
    return ippiGetPerspectiveTransform({0, 0, kWidth, kHeight}, quad, coeffs) == ippStsNoErr;
  }();
  (void)made;
  return coeffs;
}

// Arguments: filter (1 nearest, 2 linear, 4 cubic), smooth edges (0, 1), tier.
void BM_ippiRotate_8u_C4R_30(benchmark::State& state) {
  qvbench::forceTier(state, 2);
  const Turn& turn = turnBy30();
  const int word = static_cast<int>(state.range(0)) | (state.range(1) ? IPPI_SMOOTH_EDGE : 0);
  for (auto _ : state) {
    ippiRotate_8u_C4R(rgbaSource().data(), {kWidth, kHeight}, kWidth * 4, {0, 0, kWidth, kHeight}, destination().data(),
                      turn.width * 4, {0, 0, turn.width, turn.height}, 30, turn.coeffs[0][2], turn.coeffs[1][2], word);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_ippiRotate_8u_C4R_30)->ArgsProduct({{2, 4}, {0, 1}, {0, 3}})->Unit(benchmark::kMillisecond)->MinTime(0.5);

// Arguments: angle (90, 180, 270), tier.
void BM_ippiRotate_8u_C4R_quarter(benchmark::State& state) {
  qvbench::forceTier(state, 1);
  const int angle = static_cast<int>(state.range(0));
  const bool sideways = angle != 180;
  const int width = sideways ? kHeight : kWidth, height = sideways ? kWidth : kHeight;
  const double xShift = angle == 90 ? 0 : width - 1, yShift = angle == 270 ? 0 : height - 1;
  for (auto _ : state) {
    ippiRotate_8u_C4R(rgbaSource().data(), {kWidth, kHeight}, kWidth * 4, {0, 0, kWidth, kHeight}, destination().data(),
                      width * 4, {0, 0, width, height}, angle, xShift, yShift, IPPI_INTER_LINEAR);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_ippiRotate_8u_C4R_quarter)
    ->ArgsProduct({{90, 180, 270}, {0, 3}})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5);

void BM_memcpy(benchmark::State& state) {
  for (auto _ : state) {
    std::memcpy(destination().data(), rgbaSource().data(), kPixels * 4);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_memcpy)->Unit(benchmark::kMillisecond)->MinTime(0.5);

// Arguments: filter (1, 2, 4), smooth edges, tier.
void BM_ippiWarpPerspective_8u_C4R_tilt(benchmark::State& state) {
  qvbench::forceTier(state, 2);
  const int word = static_cast<int>(state.range(0)) | (state.range(1) ? IPPI_SMOOTH_EDGE : 0);
  for (auto _ : state) {
    ippiWarpPerspective_8u_C4R(rgbaSource().data(), {kWidth, kHeight}, kWidth * 4, {0, 0, kWidth, kHeight},
                               destination().data(), kWidth * 4, {0, 0, kWidth, kHeight}, tiltCoefficients(), word);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_ippiWarpPerspective_8u_C4R_tilt)
    ->ArgsProduct({{2, 4}, {0, 1}, {0, 3}})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5);

// The 8-bit plane turned by 30 degrees through the affine warp. Arguments: filter, tier.
void BM_ippiWarpAffine_8u_C1R_30(benchmark::State& state) {
  qvbench::forceTier(state, 1);
  const Turn& turn = turnBy30();
  const int word = static_cast<int>(state.range(0));
  for (auto _ : state) {
    ippiWarpAffine_8u_C1R(planeSource().data(), {kWidth, kHeight}, kWidth, {0, 0, kWidth, kHeight},
                          destination().data(), turn.width, {0, 0, turn.width, turn.height}, turn.coeffs, word);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels);
}
BENCHMARK(BM_ippiWarpAffine_8u_C1R_30)->ArgsProduct({{2, 4}, {0, 3}})->Unit(benchmark::kMillisecond)->MinTime(0.5);

#ifdef QV_HAVE_OPENCV
cv::Mat matrixOf(const double (*rows)[3], int count) {
  cv::Mat m(count, 3, CV_64F);
  for (int r = 0; r < count; ++r)
    for (int k = 0; k < 3; ++k) m.at<double>(r, k) = rows[r][k];
  return m;
}

int cvFilterOf(int64_t filter) {
  return filter == 1 ? cv::INTER_NEAREST : filter == 2 ? cv::INTER_LINEAR : cv::INTER_CUBIC;
}

// Argument: filter (1, 2, 4).
void BM_cvWarpAffine_8UC4_30(benchmark::State& state) {
  cv::setNumThreads(1);
  const Turn& turn = turnBy30();
  const cv::Mat from(kHeight, kWidth, CV_8UC4, rgbaSource().data());
  cv::Mat to(turn.height, turn.width, CV_8UC4, destination().data());
  const cv::Mat m = matrixOf(turn.coeffs, 2);
  for (auto _ : state) {
    cv::warpAffine(from, to, m, to.size(), cvFilterOf(state.range(0)), cv::BORDER_TRANSPARENT);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_cvWarpAffine_8UC4_30)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond)->MinTime(0.5);

// Argument: angle (90, 180, 270).
void BM_cvRotate_8UC4(benchmark::State& state) {
  cv::setNumThreads(1);
  const int angle = static_cast<int>(state.range(0));
  const bool sideways = angle != 180;
  const cv::Mat from(kHeight, kWidth, CV_8UC4, rgbaSource().data());
  cv::Mat to(sideways ? kWidth : kHeight, sideways ? kHeight : kWidth, CV_8UC4, destination().data());
  const int code = angle == 90    ? cv::ROTATE_90_COUNTERCLOCKWISE
                   : angle == 180 ? cv::ROTATE_180
                                  : cv::ROTATE_90_CLOCKWISE;
  for (auto _ : state) {
    cv::rotate(from, to, code);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_cvRotate_8UC4)->Arg(90)->Arg(180)->Arg(270)->Unit(benchmark::kMillisecond)->MinTime(0.5);

// Argument: filter (2, 4).
void BM_cvWarpPerspective_8UC4_tilt(benchmark::State& state) {
  cv::setNumThreads(1);
  const cv::Mat from(kHeight, kWidth, CV_8UC4, rgbaSource().data());
  cv::Mat to(kHeight, kWidth, CV_8UC4, destination().data());
  const cv::Mat m = matrixOf(tiltCoefficients(), 3);
  for (auto _ : state) {
    cv::warpPerspective(from, to, m, to.size(), cvFilterOf(state.range(0)), cv::BORDER_TRANSPARENT);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels * 4);
}
BENCHMARK(BM_cvWarpPerspective_8UC4_tilt)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond)->MinTime(0.5);

// Argument: filter (2, 4).
void BM_cvWarpAffine_8UC1_30(benchmark::State& state) {
  cv::setNumThreads(1);
  const Turn& turn = turnBy30();
  const cv::Mat from(kHeight, kWidth, CV_8UC1, planeSource().data());
  cv::Mat to(turn.height, turn.width, CV_8UC1, destination().data());
  const cv::Mat m = matrixOf(turn.coeffs, 2);
  for (auto _ : state) {
    cv::warpAffine(from, to, m, to.size(), cvFilterOf(state.range(0)), cv::BORDER_TRANSPARENT);
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, kPixels);
}
BENCHMARK(BM_cvWarpAffine_8UC1_30)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond)->MinTime(0.5);
#endif

}  // namespace

BENCHMARK_MAIN();
