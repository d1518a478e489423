// Resize of an RGBA image through the linear and Lanczos engines of QVILResize, beside OpenCV's
// cv::resize (INTER_LINEAR, INTER_LANCZOS4) on the same image, measured in the same run.
//
// Jobs: 0 reduces 3840 x 2160 to 1920 x 1080, 1 enlarges 1920 x 1080 to 3840 x 2160, 2 reduces
// 3840 x 2160 to 1600 x 900 (a ratio of 2.4). Each of our runs reports Mpixel/s of destination
// and ratio_vs_opencv: its throughput over OpenCV's on the same job and depth, timed right after
// it. BM_ResizeOneThread runs the option word 0 against cv::setNumThreads(1), both timed in
// processor time of the calling thread, since the machine may be shared; BM_ResizeTwoStrips runs
// strips on two processors (mode 1, limit 2) against cv::setNumThreads(2), both in wall time.
//
//   bench_resize --benchmark_filter='BM_ResizeOneThread/kind:1/bits:8/job:0'

#include <benchmark/benchmark.h>

#include <time.h>

#include <chrono>
#include <map>
#include <tuple>

#include "qvimage/QVILResize.h"
#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

struct Job {
  int srcWidth, srcHeight, dstWidth, dstHeight;
};

constexpr Job kJobs[] = {{3840, 2160, 1920, 1080}, {1920, 1080, 3840, 2160}, {3840, 2160, 1600, 900}};

// An image of the job's sizes, made once a size and depth.
qvbench::AlignedBlock& imageOf(int width, int height, int bits, uint8_t seed) {
  static std::map<std::tuple<int, int, int, uint8_t>, qvbench::AlignedBlock> images;
  const auto key = std::make_tuple(width, height, bits, seed);
  auto found = images.find(key);
  if (found == images.end())
    found = images.emplace(key, qvbench::AlignedBlock(static_cast<size_t>(width) * height * bits / 2, seed)).first;
  return found->second;
}

vImage_Buffer bufferOf(qvbench::AlignedBlock& block, int width, int height, int bits) {
  return {block.data(), static_cast<size_t>(height), static_cast<size_t>(width),
          static_cast<size_t>(width) * static_cast<size_t>(bits / 2)};
}

double wallSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

#ifdef QV_HAVE_OPENCV
// OpenCV's destination pixels a second on the same job, timed for about a quarter of a second.
double opencvPixelsPerSecond(const Job& job, int bits, bool lanczos, int threads, double (*clock)()) {
  const int type = bits == 8 ? CV_8UC4 : CV_16UC4;
  const cv::Mat from(job.srcHeight, job.srcWidth, type, imageOf(job.srcWidth, job.srcHeight, bits, 1).data());
  cv::Mat to(job.dstHeight, job.dstWidth, type, imageOf(job.dstWidth, job.dstHeight, bits, 2).data());
  cv::setNumThreads(threads);
  const int interpolation = lanczos ? cv::INTER_LANCZOS4 : cv::INTER_LINEAR;
  cv::resize(from, to, to.size(), 0, 0, interpolation);  // warm
  int runs = 0;
  const double start = clock();
  double seconds = 0;
  do {
    cv::resize(from, to, to.size(), 0, 0, interpolation);
    ++runs;
    seconds = clock() - start;
  } while (seconds < 0.25 || runs < 3);
  return static_cast<double>(runs) * job.dstWidth * job.dstHeight / seconds;
}
#endif

void setMegapixels(benchmark::State& state, const Job& job) {
  state.counters["Mpixel/s"] = benchmark::Counter(
      static_cast<double>(state.iterations()) * job.dstWidth * job.dstHeight / 1e6, benchmark::Counter::kIsRate);
}

// One engine call per iteration; threads 1 or 2, timed by the given clock.
void runEngine(benchmark::State& state, int threads, double (*clock)()) {
  const bool lanczos = state.range(0) == 1;
  const int bits = static_cast<int>(state.range(1));
  const Job& job = kJobs[state.range(2)];
  const uint32_t options = threads == 1 ? 0 : (1u | 2u << 16);
  QVILResize* resize = QVILResize::sharedInstance();
  vImage_Buffer src = bufferOf(imageOf(job.srcWidth, job.srcHeight, bits, 1), job.srcWidth, job.srcHeight, bits);
  vImage_Buffer dst = bufferOf(imageOf(job.dstWidth, job.dstHeight, bits, 2), job.dstWidth, job.dstHeight, bits);
  const double start = clock();
  for (auto _ : state) {
    const bool done = lanczos ? resize->imageLibScaleLanczosRGBA(&src, &dst, options, static_cast<uint64_t>(bits))
                              : resize->imageLibScaleLinearRGBA(&src, &dst, options, static_cast<uint64_t>(bits));
    benchmark::DoNotOptimize(done);
    benchmark::ClobberMemory();
  }
  const double seconds = clock() - start;
  setMegapixels(state, job);
#ifdef QV_HAVE_OPENCV
  const double ours = static_cast<double>(state.iterations()) * job.dstWidth * job.dstHeight / seconds;
  state.counters["ratio_vs_opencv"] = ours / opencvPixelsPerSecond(job, bits, lanczos, threads, clock);
#else
  (void)seconds;
#endif
}

// Arguments: kind (0 linear, 1 Lanczos), bits, job.
void BM_ResizeOneThread(benchmark::State& state) { runEngine(state, 1, threadSeconds); }
BENCHMARK(BM_ResizeOneThread)
    ->ArgsProduct({{0, 1}, {8, 16}, {0, 1, 2}})
    ->ArgNames({"kind", "bits", "job"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5);

void BM_ResizeTwoStrips(benchmark::State& state) { runEngine(state, 2, wallSeconds); }
BENCHMARK(BM_ResizeTwoStrips)
    ->ArgsProduct({{0, 1}, {8, 16}, {0, 1, 2}})
    ->ArgNames({"kind", "bits", "job"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5)
    ->UseRealTime();

#ifdef QV_HAVE_OPENCV
// OpenCV alone, for its own figures. Arguments as above.
void BM_OpenCVResize(benchmark::State& state) {
  const bool lanczos = state.range(0) == 1;
  const int bits = static_cast<int>(state.range(1));
  const Job& job = kJobs[state.range(2)];
  const int type = bits == 8 ? CV_8UC4 : CV_16UC4;
  const cv::Mat from(job.srcHeight, job.srcWidth, type, imageOf(job.srcWidth, job.srcHeight, bits, 1).data());
  cv::Mat to(job.dstHeight, job.dstWidth, type, imageOf(job.dstWidth, job.dstHeight, bits, 2).data());
  cv::setNumThreads(static_cast<int>(state.range(3)));
  for (auto _ : state) {
    cv::resize(from, to, to.size(), 0, 0, lanczos ? cv::INTER_LANCZOS4 : cv::INTER_LINEAR);
    benchmark::ClobberMemory();
  }
  setMegapixels(state, job);
}
BENCHMARK(BM_OpenCVResize)
    ->ArgsProduct({{0, 1}, {8, 16}, {0, 1, 2}, {1, 2}})
    ->ArgNames({"kind", "bits", "job", "threads"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.5)
    ->UseRealTime();
#endif

// The resize primitive alone on one thread, per tier: linear or Lanczos of 3 lobes, 8 bits, job 0.
void BM_ResizePrimitive(benchmark::State& state) {
  qvbench::forceTier(state, 0);
  const bool lanczos = state.range(1) == 1;
  const Job& job = kJobs[0];
  const IppiSize from{job.srcWidth, job.srcHeight}, to{job.dstWidth, job.dstHeight};
  int specSize = 0, initSize = 0, bufferSize = 0;
  ippiResizeGetSize_8u(from, to, lanczos ? 16 : 2, 0, &specSize, &initSize);
  qvbench::AlignedBlock spec(static_cast<size_t>(specSize)), init(static_cast<size_t>(initSize));
  auto* record = reinterpret_cast<ResizeSpec*>(spec.data());
  if (lanczos)
    ippiResizeLanczosInit_8u(from, to, 3, record, init.data());
  else
    ippiResizeLinearInit_8u(from, to, record);
  ippiResizeGetBufferSize_8u(record, to, 4, &bufferSize);
  qvbench::AlignedBlock scratch(static_cast<size_t>(bufferSize));
  uint8_t* src = imageOf(job.srcWidth, job.srcHeight, 8, 1).data();
  uint8_t* dst = imageOf(job.dstWidth, job.dstHeight, 8, 2).data();
  for (auto _ : state) {
    const IppStatus status = lanczos ? ippiResizeLanczos_8u_C4R(src, 4 * from.width, dst, 4 * to.width, {0, 0}, to, 1,
                                                                nullptr, record, scratch.data())
                                     : ippiResizeLinear_8u_C4R(src, 4 * from.width, dst, 4 * to.width, {0, 0}, to, 1,
                                                               nullptr, record, scratch.data());
    benchmark::DoNotOptimize(status);
    benchmark::ClobberMemory();
  }
  setMegapixels(state, job);
}
BENCHMARK(BM_ResizePrimitive)
    ->ArgsProduct({{0, 1, 2, 3}, {0, 1}})
    ->ArgNames({"tier", "lanczos"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3)
    ->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
