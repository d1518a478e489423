#include "reference.h"

#include <cmath>

namespace reference {

// --- composition ---

int scaledProduct(int x, int y) {
  const int p = x * y;
  return (p + 1 + (p >> 8)) >> 8;
}

namespace {
int saturatedSum(int x, int y) { return x + y > 255 ? 255 : x + y; }
}  // namespace

void composePixel(int type, const uint8_t first[4], const uint8_t second[4], uint8_t out[4]) {
  const int alphaA = first[3];
  const int alphaB = second[3];
  const bool premultipliedOperands = type >= 6;
  for (int i = 0; i < 4; ++i) {
    const bool isAlpha = i == 3;
    int s1 = first[i];
    int s2 = second[i];
    if (!premultipliedOperands && !isAlpha) {
      s1 = scaledProduct(alphaA, s1);
      s2 = scaledProduct(alphaB, s2);
    }
    int value = 0;
    switch (type % 6) {
      case 0:  // over
        value = saturatedSum(s1, scaledProduct(255 - alphaA, s2));
        break;
      case 1:  // in
        value = scaledProduct(alphaB, s1);
        break;
      case 2:  // out
        value = scaledProduct(255 - alphaB, s1);
        break;
      case 3:  // atop
        value = isAlpha ? alphaB : saturatedSum(scaledProduct(alphaB, s1), scaledProduct(255 - alphaA, s2));
        break;
      case 4:  // xor
        value = saturatedSum(scaledProduct(255 - alphaB, s1), scaledProduct(255 - alphaA, s2));
        break;
      case 5:  // plus
        value = saturatedSum(s1, s2);
        break;
    }
    out[i] = static_cast<uint8_t>(value);
  }
}

// --- random generator ---

Generator::Generator(uint32_t seed) : lcg(1131199209u), a(seed), carry(0xFFFFFFFFu) {
  b = seed * 69069u + 1013904243u;
  c = b * 69069u + 1013904243u;
}

int32_t Generator::next() {
  const uint32_t t = b - c + carry;
  uint32_t fresh = t;
  carry = 0;
  if (static_cast<int32_t>(t) < 0) {
    fresh = t - 18u;
    carry = 0xFFFFFFFFu;
  }
  lcg = lcg * 69069u + 1013904243u;
  const auto output = static_cast<int32_t>(fresh + lcg);
  c = b;
  b = a;
  a = fresh;
  return output;
}

std::vector<int16_t> uniform16s(int16_t low, int16_t high, uint32_t seed, int count) {
  Generator generator(seed);
  const double mid = (static_cast<int>(low) + static_cast<int>(high)) * 0.5;
  const double scale = (static_cast<int>(high) - static_cast<int>(low)) * 2.3283064365387e-10;
  std::vector<int16_t> out;
  for (int i = 0; i < count; ++i) {
    const double value = generator.next() * scale + mid;
    out.push_back(static_cast<int16_t>(static_cast<int>(value)));
  }
  return out;
}

std::vector<float> uniform32f(float low, float high, uint32_t seed, int count) {
  Generator generator(seed);
  const float sum = low + high;
  const float difference = high - low;
  const double mid = static_cast<double>(sum) * 0.5;
  const double scale = static_cast<double>(difference) * 2.3283064365387e-10;
  std::vector<float> out;
  for (int i = 0; i < count; ++i) out.push_back(static_cast<float>(generator.next() * scale + mid));
  return out;
}

// --- Gaussian noise ---

GaussianStream gaussianValues(uint32_t seed, double mean, double deviation, int count) {
  Generator generator(seed);
  GaussianStream stream;
  while (static_cast<int>(stream.values.size()) < count) {
    const double u1 = generator.next() * 4.656612873077e-10;
    const double u2 = generator.next() * 4.656612873077e-10;
    const double s = u1 * u1 + u2 * u2;
    if (s >= 1.0 || s == 0.0) continue;
    const double f = std::sqrt(-2.0 * std::log(s) / s);
    stream.values.push_back(u1 * deviation * f + mean);
    stream.values.push_back(u2 * deviation * f + mean);
  }
  stream.finalSeed = generator.a;
  return stream;
}

namespace {

template <typename Sample, typename Add>
uint32_t addToColours(std::vector<Sample>& pixels, int width, int height, double mean, double deviation, uint32_t seed,
                      Add add) {
  const GaussianStream stream = gaussianValues(seed, mean, deviation, 3 * width * height);
  size_t next = 0;
  for (int p = 0; p < width * height; ++p) {
    for (int channel = 0; channel < 3; ++channel) {
      Sample& sample = pixels[static_cast<size_t>(4 * p + channel)];
      sample = add(sample, stream.values[next++]);
    }
  }
  return stream.finalSeed;
}

int clampTo(int value, int maximum) { return value < 0 ? 0 : (value > maximum ? maximum : value); }

}  // namespace

uint32_t addGaussian8u(std::vector<uint8_t>& pixels, int width, int height, int mean, int deviation, uint32_t seed) {
  return addToColours(pixels, width, height, mean, deviation, seed, [](uint8_t sample, double noise) {
    return static_cast<uint8_t>(clampTo(sample + static_cast<int>(std::trunc(noise)), 255));
  });
}

uint32_t addGaussian16u(std::vector<uint16_t>& pixels, int width, int height, int mean, int deviation, uint32_t seed) {
  return addToColours(pixels, width, height, mean, deviation, seed, [](uint16_t sample, double noise) {
    return static_cast<uint16_t>(clampTo(sample + static_cast<int>(std::trunc(noise)), 65535));
  });
}

uint32_t addGaussian32f(std::vector<float>& pixels, int width, int height, float mean, float deviation, uint32_t seed) {
  return addToColours(pixels, width, height, mean, deviation, seed,
                      [](float sample, double noise) { return sample + static_cast<float>(noise); });
}

// --- bit reduction ---

namespace {

struct Levels {
  int last;
  float step;
  float scale;
};

Levels levelsOf(int levels) {
  const float last = static_cast<float>(levels - 1);
  return {levels - 1, 65280.0f / last * 0.00390625f, last / 255.0f};
}

uint8_t toByte(float value) {
  const int truncated = static_cast<int>(value);
  return static_cast<uint8_t>(truncated < 0 ? 0 : (truncated > 255 ? 255 : truncated));
}

// Quantises v with threshold t; writes the error it leaves.
uint8_t quantise(float v, float t, const Levels& levels, float& error) {
  error = 0.0f;
  if (v >= 255.0f) return 255;
  if (v < 0.0f) return 0;
  const float q = static_cast<float>(static_cast<int>(v * levels.scale)) * levels.step;
  float r = q;
  if (v - q > t) r = q + levels.step;
  error = v - r;
  return toByte(r);
}

// Threshold of column x, row r: a fixed value, or the noise table entry.
struct Thresholds {
  bool noisy;
  float fixed;
  std::vector<int16_t> index;
  std::vector<float> value;
  float at(int x, int r) const {
    if (!noisy) return fixed;
    return value[static_cast<size_t>((index[static_cast<size_t>(x % 1024)] + 2 * r + x) % 1024)];
  }
};

Thresholds diffusionThresholds(int noise, const Levels& levels) {
  Thresholds t{noise != 0, 0.5f * levels.step, {}, {}};
  if (t.noisy) {
    t.index = uniform16s(0, 1024, 0, 1024);
    t.value = uniform32f(static_cast<float>(50 - noise) * levels.step / 100.0f,
                         static_cast<float>(50 + noise) * levels.step / 100.0f, 0, 1024);
  }
  return t;
}

std::vector<uint8_t> floydSteinberg(const std::vector<uint8_t>& in, int width, int height, const Levels& levels,
                                    const Thresholds& thresholds) {
  std::vector<uint8_t> out(in.size());
  // Errors indexed x + 1 so that columns -1 and width read zeros.
  std::vector<float> above(static_cast<size_t>(width + 2), 0.0f);
  std::vector<float> here(static_cast<size_t>(width + 2), 0.0f);
  for (int channel = 0; channel < 4; ++channel) {
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const size_t i = static_cast<size_t>(x) + 1;
        const float diffused = (3.0f * above[i + 1] + above[i - 1] + 5.0f * above[i] + 7.0f * here[i - 1]) * 0.0625f;
        const size_t at = static_cast<size_t>(4 * (y * width + x) + channel);
        const float v = static_cast<float>(in[at]) + diffused;
        out[at] = quantise(v, thresholds.at(x, y), levels, here[i]);
      }
      above.swap(here);  // the errors of this row are the row above of the next
    }
  }
  return out;
}

std::vector<uint8_t> wideDiffusion(const std::vector<uint8_t>& in, int width, int height, const Levels& levels,
                                   const Thresholds& thresholds, bool stucki) {
  const float twoAboveWeights[5] = {1, static_cast<float>(stucki ? 2 : 3), static_cast<float>(stucki ? 4 : 5),
                                    static_cast<float>(stucki ? 2 : 3), 1};
  const float aboveWeights[5] = {static_cast<float>(stucki ? 2 : 3), static_cast<float>(stucki ? 4 : 5),
                                 static_cast<float>(stucki ? 8 : 7), static_cast<float>(stucki ? 4 : 5),
                                 static_cast<float>(stucki ? 2 : 3)};
  const float leftWeights[2] = {static_cast<float>(stucki ? 4 : 5), static_cast<float>(stucki ? 8 : 7)};
  const float factor = stucki ? 0.023809524f : 0.020833334f;
  std::vector<uint8_t> out(in.size());
  // Errors indexed x + 2: two zero columns on each side.
  std::vector<float> twoAbove(static_cast<size_t>(width + 4), 0.0f);
  std::vector<float> above(static_cast<size_t>(width + 4), 0.0f);
  std::vector<float> here(static_cast<size_t>(width + 4), 0.0f);
  for (int channel = 0; channel < 4; ++channel) {
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const size_t i = static_cast<size_t>(x) + 2;
        float sum = 0.0f;
        for (int k = 0; k < 5; ++k) {
          const float term = twoAboveWeights[k] * twoAbove[i - 2 + static_cast<size_t>(k)];
          sum = k == 0 ? term : sum + term;
        }
        for (int k = 0; k < 5; ++k) sum = sum + aboveWeights[k] * above[i - 2 + static_cast<size_t>(k)];
        sum = sum + leftWeights[0] * here[i - 2];
        sum = sum + leftWeights[1] * here[i - 1];
        const size_t at = static_cast<size_t>(4 * (y * width + x) + channel);
        const float v = static_cast<float>(in[at]) + sum * factor;
        out[at] = quantise(v, thresholds.at(x, y), levels, here[i]);
      }
      // The oldest row becomes the current one.
      std::vector<float> oldest = std::move(twoAbove);
      twoAbove = std::move(above);
      above = std::move(here);
      here = std::move(oldest);
    }
  }
  return out;
}

const int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

std::vector<uint8_t> bayer(const std::vector<uint8_t>& in, int width, int height, const Levels& levels, int noise) {
  std::vector<int16_t> index;
  std::vector<float> value;
  if (noise != 0) {
    index = uniform16s(0, 1024, 0, 1024);
    value = uniform32f(static_cast<float>(-noise) / 100.0f, static_cast<float>(noise) / 100.0f, 0, 1024);
  }
  std::vector<uint8_t> out(in.size());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const float fraction = static_cast<float>(kBayer[y % 4][x % 4]) / 15.0f;
      float t = fraction * levels.step;
      if (noise != 0) {
        const float n = value[static_cast<size_t>((index[static_cast<size_t>(x % 1024)] + 2 * y + x) % 1024)];
        t = (fraction + n) * levels.step;
      }
      for (int channel = 0; channel < 4; ++channel) {
        const size_t at = static_cast<size_t>(4 * (y * width + x) + channel);
        const float p = static_cast<float>(in[at]);
        const float q = static_cast<float>(static_cast<int>(p * levels.scale)) * levels.step;
        out[at] = toByte(p - q > t ? q + levels.step : q);
      }
    }
  }
  return out;
}

std::vector<uint8_t> noDither(const std::vector<uint8_t>& in, const Levels& levels) {
  std::vector<uint8_t> out(in.size());
  const float last = static_cast<float>(levels.last);
  const float unitStep = 1.0f / last;
  for (size_t i = 0; i < in.size(); ++i) {
    const float u = static_cast<float>(in[i]) * 0.003921569f;
    const float q = static_cast<float>(static_cast<int>(last * u)) * unitStep;
    const float r = u - q > 0.5f / last ? q + unitStep : q;
    out[i] = toByte(r * 255.0f);
  }
  return out;
}

}  // namespace

std::vector<uint8_t> reduceBits(const std::vector<uint8_t>& pixels, int width, int height, int noise, int type,
                                int levels) {
  const Levels derived = levelsOf(levels);
  switch (type) {
    case 1:
      return floydSteinberg(pixels, width, height, derived, diffusionThresholds(noise, derived));
    case 2:
    case 3:
      return wideDiffusion(pixels, width, height, derived, diffusionThresholds(noise, derived), type == 3);
    case 4:
      return bayer(pixels, width, height, derived, noise);
    default:
      return noDither(pixels, derived);
  }
}

}  // namespace reference
