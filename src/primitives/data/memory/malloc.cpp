// The tiers' typed allocators. The count is multiplied by the element size as a 32-bit value
// without a test: a wrap to a positive value gives a smaller block than was asked for.

#include "primitives/common/tier.h"
#include "primitives/data/memory/memory.h"

namespace QV_TIER {
namespace {

void* allocateElements(int count, unsigned shift) {
  if (count <= 0) return nullptr;
  return ippMalloc(static_cast<int>(static_cast<unsigned>(count) << shift));
}

}  // namespace

Ipp8u* ippsMalloc_8u(int len) { return static_cast<Ipp8u*>(allocateElements(len, 0)); }
Ipp16u* ippsMalloc_16u(int len) { return static_cast<Ipp16u*>(allocateElements(len, 1)); }
Ipp16s* ippsMalloc_16s(int len) { return static_cast<Ipp16s*>(allocateElements(len, 1)); }
Ipp32s* ippsMalloc_32s(int len) { return static_cast<Ipp32s*>(allocateElements(len, 2)); }
Ipp32f* ippsMalloc_32f(int len) { return static_cast<Ipp32f*>(allocateElements(len, 2)); }
void ippsFree(void* ptr) { ippFree(ptr); }

}  // namespace QV_TIER
