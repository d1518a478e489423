#include "classes/strips.h"

#include "qvimage/QVILSharedInternal.h"

namespace qv::frame {

uint32_t processorCountForOptions(uint32_t options) {
  const uint32_t mode = optionMode(options);
  if (mode == 0 || optionLimit(options) == 1) return 1;
  return mode == 2 ? QVILSharedInternal::numberOfAvailablePhysicalCPUs()
                   : QVILSharedInternal::numberOfAvailableLogicalCPUs();
}

bool copyShouldSplit(int32_t width, int32_t height, uint32_t options, uint32_t processors) {
  const int32_t minimum = QVILSharedInternal::minimalDimensionsToUseMultithreading();
  return width > minimum && height > minimum && optionMode(options) != 0 && processors >= 2;
}

StripPlan planStrips(uint32_t processors, uint32_t options, uint32_t height) {
  const uint32_t limit = optionLimit(options);
  const uint32_t count = limit != 0 && limit < processors ? limit : processors;
  const uint32_t rows = height / count;
  return {count, rows, rows + height % count};
}

}  // namespace qv::frame
