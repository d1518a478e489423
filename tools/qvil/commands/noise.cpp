// qvil noise: adds Gaussian noise to the colour channels of an RGBA image.

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "command.h"
#include "image_io.h"
#include "qvimage/QVILConversion.h"
#include "synthetic.h"

namespace {

struct NoiseOptions {
  int32_t mean = 0;
  int32_t stDev = 10;
  uint32_t seed = 1;
  std::string depth = "8";
};

bool endsWith(const std::string& text, const std::string& tail) {
  return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

qvil::Image toSixteenBits(const qvil::Image& image) {
  if (image.bitsPerChannel == 16) return image;
  qvil::Image wide(image.width, image.height, 4, 16);
  for (size_t i = 0; i < image.pixels.size(); ++i) {
    const uint16_t value = static_cast<uint16_t>(image.pixels[i] * 257);
    std::memcpy(&wide.pixels[2 * i], &value, 2);
  }
  return wide;
}

qvil::Image toEightBits(const qvil::Image& image) {
  qvil::Image narrow(image.width, image.height, 4, 8);
  for (size_t i = 0; i < narrow.pixels.size(); ++i) {
    uint16_t value;
    std::memcpy(&value, &image.pixels[2 * i], 2);
    narrow.pixels[i] = static_cast<uint8_t>(value >> 8);
  }
  return narrow;
}

// The float form works on samples of 0 to 255 held as floats, so that mean and deviation have
// the same units as at 8 bits; the result is rounded and clamped back to bytes.
qvil::Image noiseInFloat(const qvil::Image& image, const NoiseOptions& options) {
  std::vector<float> samples(image.pixels.begin(), image.pixels.end());
  vImage_Buffer buffer{samples.data(), static_cast<size_t>(image.height), static_cast<size_t>(image.width),
                       static_cast<size_t>(image.width) * 16};
  QVILConversion::sharedInstance()->imageLibAddRandomGaussianFloat(&buffer, options.mean, options.stDev, options.seed);
  qvil::Image result(image.width, image.height, 4, 8);
  for (size_t i = 0; i < samples.size(); ++i) {
    const float v = samples[i] + 0.5f;
    result.pixels[i] = static_cast<uint8_t>(v <= 0.0f ? 0 : (v >= 255.0f ? 255 : static_cast<int>(v)));
  }
  return result;
}

qvil::Image addNoise(const qvil::Image& image, const NoiseOptions& options) {
  QVILConversion* conversion = QVILConversion::sharedInstance();
  if (options.depth == "float") return noiseInFloat(image, options);
  if (options.depth == "16") {
    qvil::Image wide = toSixteenBits(image);
    vImage_Buffer buffer = wide.buffer();
    conversion->imageLibAddRandomGaussianInteger(&buffer, options.mean, options.stDev, options.seed);
    return wide;
  }
  qvil::Image result = image;
  vImage_Buffer buffer = result.buffer();
  conversion->imageLibAddRandomGaussian(&buffer, options.mean, options.stDev, options.seed);
  return result;
}

int runNoise(const qvil::Arguments& arguments) {
  arguments.expectPositional(2);
  arguments.allowOnly({"mean", "stdev", "seed", "depth"});
  NoiseOptions options;
  options.depth = arguments.text("depth", "8");
  if (options.depth != "8" && options.depth != "16" && options.depth != "float")
    throw qvil::UsageError("--depth takes 8, 16 or float");
  const long long limit = options.depth == "16" ? 65535 : 255;
  options.mean = static_cast<int32_t>(arguments.integer("mean", 0, 0, limit));
  options.stDev = static_cast<int32_t>(arguments.integer("stdev", 10, 0, limit));
  options.seed = static_cast<uint32_t>(arguments.integer("seed", 1, 0, 0xFFFFFFFFLL));
  const std::string& output = arguments.positional()[1];
  qvil::Image result = addNoise(qvil::readImage(arguments.positional()[0], 4, options.depth == "16"), options);
  if (result.bitsPerChannel == 16 && !endsWith(output, ".pam")) result = toEightBits(result);
  qvil::writeImage(output, result);
  return 0;
}

const qvil::CommandRegistration registration(
    {"noise",
     "Add Gaussian noise to the colour channels of an RGBA image (alpha untouched)",
     "noise INPUT OUTPUT [--mean M] [--stdev S] [--seed N] [--depth 8|16|float]\n"
     "  M and S: 0-255 (0-65535 at depth 16), default 0 and 10; the noise of one seed is always\n"
     "  the same. Depth 16 keeps 16 bits when OUTPUT is .pam; depth float works on 0-255 floats",
     {},
     runNoise});

void demoNoise(const qvil::DemoContext& context) {
  const qvil::Image gradient = qvil::gradientImage(640, 480);
  NoiseOptions options;
  options.stDev = 24;
  options.seed = 2024;
  qvil::writeImage(context.directory + "/noise.png", addNoise(gradient, options));
  options.depth = "16";
  qvil::writeImage(context.directory + "/noise16.pam", addNoise(gradient, options));
  printf("added Gaussian noise (deviation 24) to the gradient: noise.png, and at 16 bits noise16.pam\n");
}

const qvil::DemoRegistration demo({41, "Gaussian noise", demoNoise});

}  // namespace
