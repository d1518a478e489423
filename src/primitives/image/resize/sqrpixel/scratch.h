#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_SCRATCH_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_SCRATCH_H

// Carves the caller's scratch block into aligned tables, in the order they are asked for.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

class ScratchCarver {
 public:
  explicit ScratchCarver(Ipp8u* block) : next_(addressOf(block)) {}

  // count elements of T at the next multiple of alignment (a power of two).
  template <typename T>
  T* take(size_t count, uintptr_t alignment) {
    const uintptr_t start = (next_ + alignment - 1) & ~(alignment - 1);
    next_ = start + count * sizeof(T);
    return reinterpret_cast<T*>(start);
  }

 private:
  uintptr_t next_;
};

}  // namespace QV_TIER

#endif
