// Composition, Gaussian noise and bit reduction on a 4096 x 4096 RGBA image.
// Composition "over" (premultiplied, in place) is measured in bytes moved (two reads and a write)
// beside memcpy moving bytes the same way, and beside libvips composite2 in over mode on the
// same premultiplied data (libvips on one thread, since its work runs off the calling thread, all
// figures are wall-clock). Noise and dithering are measured in megapixels per second.

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "qvimage/ippi.h"
#include "support/bench_support.h"

#ifdef QV_HAVE_VIPS
#include <vips/vips.h>
#endif

namespace {

constexpr int kSide = 4096;
constexpr size_t kImageBytes = static_cast<size_t>(kSide) * kSide * 4;
constexpr IppiSize kRegion{kSide, kSide};
constexpr int kStep = kSide * 4;

// Premultiplied pixels: every colour at or below its alpha.
void fillPremultiplied(uint8_t* pixels, uint32_t seed) {
  uint32_t state = seed;
  for (size_t i = 0; i < kImageBytes; i += 4) {
    state = state * 1664525u + 1013904223u;
    const uint8_t alpha = static_cast<uint8_t>(state >> 24);
    for (int c = 0; c < 3; ++c) {
      const auto colour = static_cast<uint8_t>(state >> (8 * c));
      pixels[i + c] = colour < alpha ? colour : alpha;
    }
    pixels[i + 3] = alpha;
  }
}

void setMegapixels(benchmark::State& state) {
  state.counters["Mpixel/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kSide * kSide / 1e6, benchmark::Counter::kIsRate);
}

void BM_CompositeOverInPlace(benchmark::State& state) {
  qvbench::forceTier(state);
  qvbench::AlignedBlock source(kImageBytes), destination(kImageBytes);
  fillPremultiplied(source.data(), 1);
  fillPremultiplied(destination.data(), 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ippiAlphaComp_8u_AC4R(source.data(), kStep, destination.data(), kStep, destination.data(),
                                                   kStep, kRegion, ippAlphaOverPremul));
    benchmark::ClobberMemory();
  }
  qvbench::countBytes(state, 3 * kImageBytes);
  setMegapixels(state);
}
BENCHMARK(BM_CompositeOverInPlace)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->MinTime(0.2)->UseRealTime();

// The same traffic by memcpy: one image read, and a copy of another image's half read and
// written back, so that two images' bytes are read and one image's bytes written.
void BM_MemcpySameTraffic(benchmark::State& state) {
  qvbench::AlignedBlock first(kImageBytes), second(kImageBytes), target(kImageBytes);
  for (auto _ : state) {
    std::memcpy(target.data(), first.data(), kImageBytes / 2);
    std::memcpy(target.data() + kImageBytes / 2, second.data() + kImageBytes / 2, kImageBytes / 2);
    std::memcpy(first.data(), second.data(), kImageBytes / 2);
    benchmark::ClobberMemory();
  }
  // Each memcpy reads and writes its bytes: 1.5 images read and 1.5 written, three images moved.
  qvbench::countBytes(state, 3 * kImageBytes);
}
BENCHMARK(BM_MemcpySameTraffic)->Unit(benchmark::kMillisecond)->MinTime(0.2)->UseRealTime();

#ifdef QV_HAVE_VIPS
// Four bands of uchar in memory, marked as sRGB so that composite need not convert.
VipsImage* srgbImage(uint8_t* pixels) {
  VipsImage* raw = vips_image_new_from_memory(pixels, kImageBytes, kSide, kSide, 4, VIPS_FORMAT_UCHAR);
  VipsImage* marked = nullptr;
  vips_copy(raw, &marked, "interpretation", VIPS_INTERPRETATION_sRGB, nullptr);
  g_object_unref(raw);
  return marked;
}

// libvips composite2, over mode, premultiplied operands, on one thread, written to memory.
void BM_VipsComposite2Over(benchmark::State& state) {
  static const bool started = VIPS_INIT("bench_compose") == 0;
  if (!started) {
    state.SkipWithError("libvips did not start");
    return;
  }
  vips_cache_set_max(0);
  vips_concurrency_set(1);
  qvbench::AlignedBlock source(kImageBytes), destination(kImageBytes);
  fillPremultiplied(source.data(), 1);
  fillPremultiplied(destination.data(), 2);
  VipsImage* base = srgbImage(destination.data());
  VipsImage* overlay = srgbImage(source.data());
  for (auto _ : state) {
    VipsImage* out = nullptr;
    if (vips_composite2(base, overlay, &out, VIPS_BLEND_MODE_OVER, "premultiplied", TRUE, nullptr) != 0) {
      state.SkipWithError(vips_error_buffer());
      break;
    }
    size_t length = 0;
    void* pixels = vips_image_write_to_memory(out, &length);
    benchmark::DoNotOptimize(pixels);
    g_free(pixels);
    g_object_unref(out);
  }
  g_object_unref(overlay);
  g_object_unref(base);
  qvbench::countBytes(state, 3 * kImageBytes);
  setMegapixels(state);
}
BENCHMARK(BM_VipsComposite2Over)->Unit(benchmark::kMillisecond)->MinTime(0.2)->UseRealTime();
#endif

void BM_GaussianNoise8u(benchmark::State& state) {
  qvbench::forceTier(state);
  qvbench::AlignedBlock image(kImageBytes);
  unsigned int seed = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ippiAddRandGauss_Direct_8u_AC4IR(image.data(), kStep, kRegion, 0, 10, &seed));
    benchmark::ClobberMemory();
  }
  setMegapixels(state);
}
BENCHMARK(BM_GaussianNoise8u)->Arg(3)->Unit(benchmark::kMillisecond)->MinTime(0.2)->UseRealTime();

// Arguments: tier, dither type (0 none, 1 Floyd-Steinberg, 2 Jarvis-Judice-Ninke, 3 Stucki,
// 4 Bayer), noise.
void BM_ReduceBits(benchmark::State& state) {
  qvbench::forceTier(state);
  qvbench::AlignedBlock source(kImageBytes), destination(kImageBytes);
  const auto type = static_cast<IppiDitherType>(state.range(1));
  const int noise = static_cast<int>(state.range(2));
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ippiReduceBits_8u_C4R(source.data(), kStep, destination.data(), kStep, kRegion, noise, type, 4));
    benchmark::ClobberMemory();
  }
  setMegapixels(state);
}
BENCHMARK(BM_ReduceBits)
    ->ArgsProduct({{3}, {0, 1, 2, 3, 4}, {0, 50}})
    ->ArgNames({"tier", "type", "noise"})
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.2)
    ->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
