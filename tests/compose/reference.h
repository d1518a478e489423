#ifndef QV_TESTS_COMPOSE_REFERENCE_H
#define QV_TESTS_COMPOSE_REFERENCE_H

// Plain references for composition, the random generator, Gaussian noise and bit reduction,
// written straight from the rules, one value at a time, for the tests to compare with.

#include <cstdint>
#include <vector>

namespace reference {

// --- composition ---

// The scaled product (p + 1 + (p >> 8)) >> 8 of two bytes.
int scaledProduct(int x, int y);
// One pixel of composition type 0..11 (0-5 straight, 6-11 premultiplied operands).
void composePixel(int type, const uint8_t first[4], const uint8_t second[4], uint8_t out[4]);

// --- random generator ---

struct Generator {
  uint32_t lcg, a, b, c, carry;
  explicit Generator(uint32_t seed);
  int32_t next();
};

std::vector<int16_t> uniform16s(int16_t low, int16_t high, uint32_t seed, int count);
std::vector<float> uniform32f(float low, float high, uint32_t seed, int count);

// --- Gaussian noise ---

// The sequence of normal values (polar method) and the newest lagged value after count values.
struct GaussianStream {
  std::vector<double> values;
  uint32_t finalSeed;
};
GaussianStream gaussianValues(uint32_t seed, double mean, double deviation, int count);

// Adds the noise to channels 0-2 of a packed four-channel image of width x height pixels.
uint32_t addGaussian8u(std::vector<uint8_t>& pixels, int width, int height, int mean, int deviation, uint32_t seed);
uint32_t addGaussian16u(std::vector<uint16_t>& pixels, int width, int height, int mean, int deviation, uint32_t seed);
uint32_t addGaussian32f(std::vector<float>& pixels, int width, int height, float mean, float deviation, uint32_t seed);

// --- bit reduction ---

// Primitive dither type 0 none, 1 Floyd-Steinberg, 2 Jarvis-Judice-Ninke, 3 Stucki, 4 Bayer.
// pixels: packed four-channel image; answers the reduced image.
std::vector<uint8_t> reduceBits(const std::vector<uint8_t>& pixels, int width, int height, int noise, int type,
                                int levels);

}  // namespace reference

#endif
