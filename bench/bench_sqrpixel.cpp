// Square-pixel resizing of 8-bit RGBA images by real factors, one thread, beside the peers on the
// same images in the same run: OpenCV cv::resize (nearest, linear, cubic, area) and libvips
// vips_resize (Lanczos 3). The library's scaler of scale modes 5 and 6 is measured beside libvips
// too. Throughput is in destination megapixels per second; all figures are wall-clock.
//
// Run one comparison alone with --benchmark_filter, e.g. --benchmark_filter='Cubic.*3840'.

#include <benchmark/benchmark.h>

#include <memory>

#include "platform/scaler.h"
#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif
#ifdef QV_HAVE_VIPS
#include <vips/vips.h>
#endif

namespace {

struct Job {
  int srcW, srcH, dstW, dstH;
};

// Source and destination sizes as the benchmark's arguments 1 to 4.
Job jobOf(const benchmark::State& state) {
  return {static_cast<int>(state.range(1)), static_cast<int>(state.range(2)), static_cast<int>(state.range(3)),
          static_cast<int>(state.range(4))};
}

void setMegapixels(benchmark::State& state, const Job& job) {
  state.counters["Mpixel/s"] = benchmark::Counter(static_cast<double>(state.iterations()) * job.dstW * job.dstH / 1e6,
                                                  benchmark::Counter::kIsRate);
}

// The library's square-pixel resize with the interpolation word in argument 0 (the best tier).
void BM_SqrPixel(benchmark::State& state) {
  const Job job = jobOf(state);
  const uint32_t interpolation = static_cast<uint32_t>(state.range(0));
  qvbench::AlignedBlock src(static_cast<size_t>(job.srcW) * job.srcH * 4), dst(static_cast<size_t>(job.dstW) * job.dstH * 4);
  const IppiRect srcRoi{0, 0, job.srcW, job.srcH}, dstRoi{0, 0, job.dstW, job.dstH};
  int size = 0;
  ippiResizeGetBufSize(srcRoi, dstRoi, 4, interpolation, &size);
  qvbench::AlignedBlock buffer(static_cast<size_t>(size));
  const double xf = static_cast<double>(job.dstW) / job.srcW, yf = static_cast<double>(job.dstH) / job.srcH;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ippiResizeSqrPixel_8u_C4R(src.data(), {job.srcW, job.srcH}, job.srcW * 4, srcRoi,
                                                       dst.data(), job.dstW * 4, dstRoi, xf, yf, 0, 0, interpolation,
                                                       buffer.data()));
    benchmark::ClobberMemory();
  }
  setMegapixels(state, job);
}

// The library's own scaler of scale modes 5 (flags 40) and 6 (flags 8), argument 0.
void BM_LibraryScaler(benchmark::State& state) {
  const Job job = jobOf(state);
  qvbench::AlignedBlock src(static_cast<size_t>(job.srcW) * job.srcH * 4), dst(static_cast<size_t>(job.dstW) * job.dstH * 4);
  const vImage_Buffer from{src.data(), static_cast<size_t>(job.srcH), static_cast<size_t>(job.srcW),
                           static_cast<size_t>(job.srcW) * 4};
  const vImage_Buffer to{dst.data(), static_cast<size_t>(job.dstH), static_cast<size_t>(job.dstW),
                         static_cast<size_t>(job.dstW) * 4};
  for (auto _ : state) {
    qv::platform::scaleARGB8888(&from, &to, nullptr, static_cast<uint32_t>(state.range(0)));
    benchmark::ClobberMemory();
  }
  setMegapixels(state, job);
}

#define QV_UHD 3840, 2160
#define QV_FHD 1920, 1080

BENCHMARK(BM_SqrPixel)
    ->Args({IPPI_INTER_NN, QV_UHD, QV_FHD})
    ->Args({IPPI_INTER_NN, QV_FHD, QV_UHD})
    ->Args({IPPI_INTER_LINEAR, QV_UHD, QV_FHD})
    ->Args({IPPI_INTER_LINEAR, QV_FHD, QV_UHD})
    ->Args({IPPI_INTER_CUBIC, QV_UHD, QV_FHD})
    ->Args({IPPI_INTER_CUBIC, QV_FHD, QV_UHD})
    ->Args({IPPI_INTER_SUPER, QV_UHD, 1280, 720})
    ->Args({IPPI_INTER_SUPER, QV_UHD, 1000, 563})
    ->Args({IPPI_INTER_LANCZOS | IPPI_ANTIALIASING, QV_UHD, 640, 360})
    ->ArgNames({"interpolation", "srcW", "srcH", "dstW", "dstH"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3)
    ->UseRealTime();

BENCHMARK(BM_LibraryScaler)
    ->Args({40, QV_UHD, 640, 360})
    ->Args({8, QV_UHD, 640, 360})
    ->ArgNames({"flags", "srcW", "srcH", "dstW", "dstH"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3)
    ->UseRealTime();

#ifdef QV_HAVE_OPENCV
// cv::resize with the interpolation of argument 0, on one thread.
void BM_OpenCVResize(benchmark::State& state) {
  cv::setNumThreads(1);
  const Job job = jobOf(state);
  cv::Mat src(job.srcH, job.srcW, CV_8UC4, cv::Scalar(1, 2, 3, 4)), dst(job.dstH, job.dstW, CV_8UC4);
  cv::randu(src, cv::Scalar::all(0), cv::Scalar::all(255));
  for (auto _ : state) {
    cv::resize(src, dst, dst.size(), 0, 0, static_cast<int>(state.range(0)));
    benchmark::ClobberMemory();
  }
  setMegapixels(state, job);
}

BENCHMARK(BM_OpenCVResize)
    ->Args({cv::INTER_NEAREST, QV_UHD, QV_FHD})
    ->Args({cv::INTER_NEAREST, QV_FHD, QV_UHD})
    ->Args({cv::INTER_LINEAR, QV_UHD, QV_FHD})
    ->Args({cv::INTER_LINEAR, QV_FHD, QV_UHD})
    ->Args({cv::INTER_CUBIC, QV_UHD, QV_FHD})
    ->Args({cv::INTER_CUBIC, QV_FHD, QV_UHD})
    ->Args({cv::INTER_AREA, QV_UHD, 1280, 720})
    ->Args({cv::INTER_AREA, QV_UHD, 1000, 563})
    ->ArgNames({"interpolation", "srcW", "srcH", "dstW", "dstH"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3)
    ->UseRealTime();
#endif

#ifdef QV_HAVE_VIPS
// vips_resize with the Lanczos 3 kernel, one thread, the result written to memory.
void BM_VipsResizeLanczos3(benchmark::State& state) {
  static const bool started = VIPS_INIT("bench_sqrpixel") == 0;
  if (!started) {
    state.SkipWithError("libvips did not start");
    return;
  }
  vips_cache_set_max(0);
  vips_concurrency_set(1);
  const Job job = jobOf(state);
  const size_t bytes = static_cast<size_t>(job.srcW) * job.srcH * 4;
  qvbench::AlignedBlock src(bytes);
  VipsImage* in = vips_image_new_from_memory(src.data(), bytes, job.srcW, job.srcH, 4, VIPS_FORMAT_UCHAR);
  const double scale = static_cast<double>(job.dstW) / job.srcW;
  const double vscale = static_cast<double>(job.dstH) / job.srcH;
  for (auto _ : state) {
    VipsImage* out = nullptr;
    if (vips_resize(in, &out, scale, "vscale", vscale, "kernel", VIPS_KERNEL_LANCZOS3, nullptr) != 0) {
      state.SkipWithError(vips_error_buffer());
      break;
    }
    size_t length = 0;
    void* pixels = vips_image_write_to_memory(out, &length);
    benchmark::DoNotOptimize(pixels);
    g_free(pixels);
    g_object_unref(out);
  }
  g_object_unref(in);
  setMegapixels(state, job);
}
BENCHMARK(BM_VipsResizeLanczos3)
    ->Args({0, QV_UHD, 640, 360})
    ->ArgNames({"unused", "srcW", "srcH", "dstW", "dstH"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3)
    ->UseRealTime();
#endif

}  // namespace

BENCHMARK_MAIN();
