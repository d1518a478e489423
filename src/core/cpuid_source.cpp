#include "core/cpuid_source.h"

#include <cpuid.h>

namespace qv::core {
namespace {

void hardwareCpuid(uint32_t leaf, uint32_t subleaf, uint32_t registers[4]) {
  __cpuid_count(leaf, subleaf, registers[0], registers[1], registers[2], registers[3]);
}

uint64_t hardwareXgetbv(uint32_t index) {
  uint32_t low = 0;
  uint32_t high = 0;
  __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(index));
  return (static_cast<uint64_t>(high) << 32) | low;
}

const CpuidSource hardwareSource{hardwareCpuid, hardwareXgetbv};
const CpuidSource* currentSource = &hardwareSource;

}  // namespace

void cpuid(uint32_t leaf, uint32_t subleaf, uint32_t registers[4]) { currentSource->cpuid(leaf, subleaf, registers); }

uint64_t xgetbv(uint32_t index) { return currentSource->xgetbv(index); }

void setCpuidSource(const CpuidSource* source) { currentSource = source != nullptr ? source : &hardwareSource; }

}  // namespace qv::core
