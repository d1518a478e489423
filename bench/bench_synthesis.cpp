// Texture synthesis: a 512 x 512 RGBA image with a 128 x 128 hole at the default parameters, and
// a 4000 x 3000 image with a 64 x 64 hole. Reports time, the peak memory of one run (measured in a
// child process, over a child that only holds the images) and a hash of the result, so that a
// change of speed can be checked for an unchanged result.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "qvimage/imageSynth.h"
#include "support/bench_support.h"

namespace {

struct Job {
  int width;
  int height;
  int holeSize;
  std::vector<uint8_t> image;
  std::vector<uint8_t> mask;
};

// Woven stripes and rings with a little noise: a texture worth matching.
Job makeJob(int width, int height, int holeSize) {
  Job job{width, height, holeSize, std::vector<uint8_t>(static_cast<size_t>(width) * height * 4),
          std::vector<uint8_t>(static_cast<size_t>(width) * height, 0)};
  uint32_t noise = 12345;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      uint8_t* p = &job.image[(static_cast<size_t>(y) * width + x) * 4];
      noise = noise * 1664525u + 1013904223u;
      const int jitter = static_cast<int>(noise >> 28);
      const double weave = std::sin(x * 0.35) * std::cos(y * 0.27);
      p[0] = static_cast<uint8_t>(120 + 90 * weave + jitter);
      p[1] = static_cast<uint8_t>(((x / 8 + y / 8) % 2) * 100 + 60 + jitter);
      p[2] = static_cast<uint8_t>(128 + 100 * std::sin(std::hypot(x - 40.0, y - 70.0) * 0.2));
      p[3] = 255;
    }
  }
  const int x0 = (width - holeSize) / 2, y0 = (height - holeSize) / 2;
  for (int y = y0; y < y0 + holeSize; ++y)
    for (int x = x0; x < x0 + holeSize; ++x) job.mask[static_cast<size_t>(y) * width + x] = 255;
  return job;
}

void ignoreProgress(int32_t, void*) {}

int32_t heal(Job& job, std::vector<uint8_t>& pixels) {
  _ImageBuffer image{pixels.data(), static_cast<uint32_t>(job.width), static_cast<uint32_t>(job.height),
                     static_cast<uint64_t>(job.width) * 4};
  _ImageBuffer mask{job.mask.data(), static_cast<uint32_t>(job.width), static_cast<uint32_t>(job.height),
                    static_cast<uint64_t>(job.width)};
  int32_t cancel = 0;
  return imageSynth(&image, &mask, ImageFormatRGBA, nullptr, reinterpret_cast<void*>(&ignoreProgress), nullptr,
                    &cancel);
}

uint64_t hashOf(const std::vector<uint8_t>& bytes) {
  uint64_t h = 1469598103934665603ull;
  for (uint8_t b : bytes) h = (h ^ b) * 1099511628211ull;
  return h;
}

// Peak resident kilobytes of a child that builds the job and, when asked, heals it once.
long childPeakKilobytes(int width, int height, int holeSize, bool run) {
  const pid_t child = fork();
  if (child == 0) {
    Job job = makeJob(width, height, holeSize);
    std::vector<uint8_t> pixels = job.image;
    if (run) heal(job, pixels);
    _exit(0);
  }
  int status = 0;
  struct rusage usage {};
  wait4(child, &status, 0, &usage);
  return usage.ru_maxrss;
}

void BM_Synthesis(benchmark::State& state) {
  const int width = static_cast<int>(state.range(0)), height = static_cast<int>(state.range(1));
  const int holeSize = static_cast<int>(state.range(2));
  Job job = makeJob(width, height, holeSize);
  std::vector<uint8_t> pixels;
  for (auto _ : state) {
    state.PauseTiming();
    pixels = job.image;
    state.ResumeTiming();
    benchmark::DoNotOptimize(heal(job, pixels));
  }
  const double imagePixels = static_cast<double>(width) * height;
  const long peak =
      childPeakKilobytes(width, height, holeSize, true) - childPeakKilobytes(width, height, holeSize, false);
  state.counters["hole_px"] = static_cast<double>(holeSize) * holeSize;
  state.counters["peak_MB"] = peak / 1024.0;
  state.counters["peak_B_per_px"] = peak * 1024.0 / imagePixels;
  state.counters["image_px/s"] = benchmark::Counter(imagePixels, benchmark::Counter::kIsIterationInvariantRate);
  char label[40];
  snprintf(label, sizeof label, "result %016llx", static_cast<unsigned long long>(hashOf(pixels)));
  state.SetLabel(label);
}

BENCHMARK(BM_Synthesis)->Args({512, 512, 128})->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_Synthesis)->Args({4000, 3000, 64})->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
