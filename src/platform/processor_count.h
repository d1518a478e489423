#ifndef QV_PLATFORM_PROCESSOR_COUNT_H
#define QV_PLATFORM_PROCESSOR_COUNT_H

#include <cstdint>

namespace qv::platform {

// Where processor counts come from. A reader answers 0 when it cannot tell.
struct ProcessorCountSource {
  uint32_t (*logical)();
  uint32_t (*physical)();
};

// Online logical processors, and distinct (package, core) pairs of the online processors.
uint32_t readLogicalProcessorCount();
uint32_t readPhysicalProcessorCount();

// Tests replace the source to play back other machines; null restores the system's.
void setProcessorCountSource(const ProcessorCountSource* source);

}  // namespace qv::platform

#endif
