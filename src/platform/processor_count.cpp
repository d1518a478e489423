#include "platform/processor_count.h"

#include <unistd.h>

#include <cstdio>
#include <set>
#include <utility>

namespace qv::platform {
namespace {

uint32_t systemLogicalCount() {
  const long online = sysconf(_SC_NPROCESSORS_ONLN);
  return online > 0 ? static_cast<uint32_t>(online) : 0;
}

bool readTopologyValue(long cpu, const char* field, long* value) {
  char path[128];
  snprintf(path, sizeof path, "/sys/devices/system/cpu/cpu%ld/topology/%s", cpu, field);
  FILE* file = fopen(path, "r");
  if (file == nullptr) return false;
  const bool ok = fscanf(file, "%ld", value) == 1;
  fclose(file);
  return ok;
}

uint32_t systemPhysicalCount() {
  const long configured = sysconf(_SC_NPROCESSORS_CONF);
  std::set<std::pair<long, long>> cores;
  for (long cpu = 0; cpu < configured; ++cpu) {
    long package = 0;
    long core = 0;
    if (readTopologyValue(cpu, "physical_package_id", &package) && readTopologyValue(cpu, "core_id", &core))
      cores.emplace(package, core);
  }
  return static_cast<uint32_t>(cores.size());
}

const ProcessorCountSource systemSource{systemLogicalCount, systemPhysicalCount};
const ProcessorCountSource* currentSource = &systemSource;

}  // namespace

uint32_t readLogicalProcessorCount() { return currentSource->logical(); }
uint32_t readPhysicalProcessorCount() { return currentSource->physical(); }

void setProcessorCountSource(const ProcessorCountSource* source) {
  currentSource = source != nullptr ? source : &systemSource;
}

}  // namespace qv::platform
