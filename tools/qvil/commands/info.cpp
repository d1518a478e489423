// qvil info: the processor as the library sees it and the tier it selected.

#include <cstdio>

#include "command.h"
#include "core/cpu_state.h"
#include "qvimage/QVILLibraryController.h"
#include "qvimage/QVILSharedInternal.h"
#include "qvimage/ippcore.h"

namespace {

const char* tierName(int slot) {
  static const char* const names[] = {"m7", "m7", "u8", "y8", "e9"};
  return slot >= 0 && slot <= 4 ? names[slot] : "?";
}

int runInfo(const qvil::Arguments& arguments) {
  arguments.expectPositional(0);
  arguments.allowOnly({});
  const IppStatus initStatus = ippStaticInit();
  QVILLibraryController::sharedInstance();
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  int cache = 0;
  const IppStatus cacheStatus = ippGetMaxCacheSizeB(&cache);
  printf("tier:               %s (slot %d)\n", tierName(ippJumpIndexForMergedLibs), ippJumpIndexForMergedLibs);
  printf("init status:        %d (%s)\n", initStatus, ippGetStatusString(initStatus));
  printf("feature word:       0x%llx\n", static_cast<unsigned long long>(features));
  printf("enabled mask:       0x%llx\n", static_cast<unsigned long long>(ippGetEnabledCpuFeatures()));
  printf("largest cache:      %d bytes, status %d (%s)\n", cache, cacheStatus, ippGetStatusString(cacheStatus));
  printf("logical processors: %u\n", QVILSharedInternal::numberOfAvailableLogicalCPUs());
  printf("physical processors: %u\n", QVILSharedInternal::numberOfAvailablePhysicalCPUs());
  return 0;
}

const qvil::CommandRegistration registration(
    {"info", "Show the processor, the selected tier and the cache size", "info", {}, runInfo});

void demoInfo(const qvil::DemoContext&) { runInfo(qvil::Arguments({}, {})); }

const qvil::DemoRegistration demo({0, "processor and tier", demoInfo});

}  // namespace
