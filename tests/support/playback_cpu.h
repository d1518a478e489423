#ifndef QV_TESTS_SUPPORT_PLAYBACK_CPU_H
#define QV_TESTS_SUPPORT_PLAYBACK_CPU_H

// A processor played back from recorded CPUID answers. While installed, every read of the
// processor's identity answers from it, and the library's caches of features and cache size are
// emptied on install and on removal.

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace qvtest {

struct CpuidAnswer {
  uint32_t eax = 0, ebx = 0, ecx = 0, edx = 0;
};

class PlaybackProcessor {
 public:
  // A processor of the vendor with the highest standard leaf given.
  PlaybackProcessor(const std::string& vendor, uint32_t maxLeaf);
  ~PlaybackProcessor();
  PlaybackProcessor(const PlaybackProcessor&) = delete;
  PlaybackProcessor& operator=(const PlaybackProcessor&) = delete;

  // Sets the answer of a leaf and sub-leaf; unset leaves answer zeros.
  PlaybackProcessor& answer(uint32_t leaf, uint32_t subleaf, CpuidAnswer registers);
  // Leaf 1 ECX and EDX, the rest of leaf 1 left as it was.
  PlaybackProcessor& leaf1(uint32_t ecx, uint32_t edx, uint32_t eax = 0x000306A9);
  PlaybackProcessor& xcr0(uint64_t value);
  // How many CPUID reads the library has made since install.
  int reads() const { return reads_; }

  // Common processors: SSE3 only, SSSE3 with MOVBE, SSE4.1, AVX without operating-system support.
  static constexpr uint32_t kEdxBase = (1u << 23) | (1u << 25) | (1u << 26);  // MMX, SSE, SSE2

 private:
  static void cpuid(uint32_t leaf, uint32_t subleaf, uint32_t registers[4]);
  static uint64_t xgetbv(uint32_t index);

  std::map<std::pair<uint32_t, uint32_t>, CpuidAnswer> answers_;
  uint64_t xcr0_ = 0;
  int reads_ = 0;
};

// Empties the library's cached features and cache measurement.
void forgetProcessorCaches();

}  // namespace qvtest

#endif
