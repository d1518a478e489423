#include "support/played_processor_counts.h"

#include "classes/strips.h"
#include "platform/processor_count.h"

namespace qvtest {

namespace {

uint32_t readLogical() {
  ++PlayedProcessorCounts::logicalReads;
  return PlayedProcessorCounts::logical;
}

uint32_t readPhysical() {
  ++PlayedProcessorCounts::physicalReads;
  return PlayedProcessorCounts::physical;
}

}  // namespace

void PlayedProcessorCounts::play(uint32_t logicalCount, uint32_t physicalCount) {
  static const qv::platform::ProcessorCountSource source{readLogical, readPhysical};
  logical = logicalCount;
  physical = physicalCount;
  logicalReads = 0;
  physicalReads = 0;
  qv::platform::setProcessorCountSource(&source);
  qv::frame::forgetProcessorCounts();
}

void PlayedProcessorCounts::stop() {
  qv::platform::setProcessorCountSource(nullptr);
  qv::frame::forgetProcessorCounts();
}

}  // namespace qvtest
