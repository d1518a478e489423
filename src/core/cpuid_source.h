#ifndef QV_CORE_CPUID_SOURCE_H
#define QV_CORE_CPUID_SOURCE_H

#include <cstdint>

namespace qv::core {

// Every read of the processor's identity goes through one replaceable source, so that tests can
// play back the answers of other processors.
struct CpuidSource {
  // Writes EAX, EBX, ECX, EDX of CPUID for the leaf and sub-leaf.
  void (*cpuid)(uint32_t leaf, uint32_t subleaf, uint32_t registers[4]);
  // XGETBV of the given extended control register.
  uint64_t (*xgetbv)(uint32_t index);
};

void cpuid(uint32_t leaf, uint32_t subleaf, uint32_t registers[4]);
uint64_t xgetbv(uint32_t index);

// Null restores the processor itself.
void setCpuidSource(const CpuidSource* source);

}  // namespace qv::core

#endif
