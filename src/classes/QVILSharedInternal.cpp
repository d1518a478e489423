#include "qvimage/QVILSharedInternal.h"

#include <cmath>

#include "classes/strips.h"
#include "platform/processor_count.h"

namespace {

// A count read once and kept for the life of the process; the value is written before the flag.
struct CachedCount {
  uint32_t value = 0;
  bool known = false;

  uint32_t get(uint32_t (*read)()) {
    if (!known) {
      value = read();
      known = true;
    }
    return value;
  }
};

CachedCount logicalCount;
CachedCount physicalCount;

// The platform release that the original frame compares with 1187.0: any release of this build
// has the 16-bit scaler that the comparison stood for.
constexpr double kPlatformRelease = 1265.0;

}  // namespace

void qv::frame::forgetProcessorCounts() {
  logicalCount = CachedCount{};
  physicalCount = CachedCount{};
}

uint32_t QVILSharedInternal::numberOfAvailableLogicalCPUs() {
  return logicalCount.get(qv::platform::readLogicalProcessorCount);
}

uint32_t QVILSharedInternal::numberOfAvailablePhysicalCPUs() {
  return physicalCount.get(qv::platform::readPhysicalProcessorCount);
}

int32_t QVILSharedInternal::minimalDimensionsToUseMultithreading() { return 500; }

uint32_t QVILSharedInternal::numberOfChannelsPerPixel() { return 4; }

uint32_t QVILSharedInternal::bitmapInfoForBitsPerChannel(uint32_t bitsPerChannel) {
  return bitsPerChannel == 16 ? 0x1001 : 0x2002;
}

bool QVILSharedInternal::isMavericksOrLater() { return std::floor(kPlatformRelease) > 1187.0; }
