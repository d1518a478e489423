#include "support/playback_cpu.h"

#include <cstring>

#include "core/cpu_state.h"
#include "core/cpuid_source.h"

namespace qvtest {
namespace {
PlaybackProcessor* installed = nullptr;
}  // namespace

void forgetProcessorCaches() {
  ownFeaturesAreValid = 0;
  ownFeatures = 0;
  ownStatus = 1;
  cacheSize = 0;
}

PlaybackProcessor::PlaybackProcessor(const std::string& vendor, uint32_t maxLeaf) {
  CpuidAnswer zero{maxLeaf, 0, 0, 0};
  std::memcpy(&zero.ebx, vendor.data(), 4);
  std::memcpy(&zero.edx, vendor.data() + 4, 4);
  std::memcpy(&zero.ecx, vendor.data() + 8, 4);
  answers_[{0, 0}] = zero;
  static qv::core::CpuidSource source{cpuid, xgetbv};
  installed = this;
  qv::core::setCpuidSource(&source);
  forgetProcessorCaches();
}

PlaybackProcessor::~PlaybackProcessor() {
  qv::core::setCpuidSource(nullptr);
  installed = nullptr;
  forgetProcessorCaches();
}

PlaybackProcessor& PlaybackProcessor::answer(uint32_t leaf, uint32_t subleaf, CpuidAnswer registers) {
  answers_[{leaf, subleaf}] = registers;
  return *this;
}

PlaybackProcessor& PlaybackProcessor::leaf1(uint32_t ecx, uint32_t edx, uint32_t eax) {
  CpuidAnswer& one = answers_[{1, 0}];
  one.eax = eax;
  one.ecx = ecx;
  one.edx = edx;
  return *this;
}

PlaybackProcessor& PlaybackProcessor::xcr0(uint64_t value) {
  xcr0_ = value;
  return *this;
}

void PlaybackProcessor::cpuid(uint32_t leaf, uint32_t subleaf, uint32_t registers[4]) {
  ++installed->reads_;
  const auto found = installed->answers_.find({leaf, subleaf});
  const CpuidAnswer answer = found != installed->answers_.end() ? found->second : CpuidAnswer{};
  registers[0] = answer.eax;
  registers[1] = answer.ebx;
  registers[2] = answer.ecx;
  registers[3] = answer.edx;
}

uint64_t PlaybackProcessor::xgetbv(uint32_t) { return installed->xcr0_; }

}  // namespace qvtest
