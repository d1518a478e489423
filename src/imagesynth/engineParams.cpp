// Parameter defaults and the quantised cost tables of the matching metric.

#include <cmath>
#include <cstdint>

#include "qvimage/imageSynth.h"

namespace {

// Truncation as a 64-bit conversion taking the low 32 bits, so that negative weights wrap.
uint32_t truncated(double value) { return static_cast<uint32_t>(static_cast<int64_t>(value)); }

}  // namespace

extern "C" {

void setDefaultParams(ImageSynthParametersStruct* parameters) {
  parameters->wrapHorizontally = 0;
  parameters->wrapVertically = 0;
  parameters->targetOrder = 1;
  parameters->mapWeight = 0.5;
  parameters->sensitivity = 0.117;
  parameters->neighbourLimit = 30;
  parameters->probeLimit = 200;
}

// colorDiff grows with the logarithm of the squared difference, so that a few outlying pixels do
// not dominate a match; mapDiff is quadratic. Index i stands for the difference i - 256.
void quantizeMetricFuncs(uint16_t* colorDiff, uint32_t* mapDiff, float sensitivity, float mapWeight) {
  const double scale = static_cast<double>(sensitivity * 256.0f);
  const double ratio = 256.0 / scale;
  const double norm = 1.0 / log(ratio * ratio + 1.0);
  for (int d = -256; d <= 255; ++d) {
    const double scaled = d * (1.0 / scale);
    colorDiff[d + 256] = static_cast<uint16_t>(truncated((log(scaled * scaled + 1.0) * 65535.0) * norm));
  }
  mapDiff[0] = truncated(static_cast<double>(mapWeight * 65536.0f) * 4.0);
  for (int d = -255; d <= 255; ++d) {
    const float square = static_cast<float>(d * d);
    mapDiff[d + 256] = truncated(static_cast<double>(square * mapWeight) * 4.0);
  }
}

}  // extern "C"
