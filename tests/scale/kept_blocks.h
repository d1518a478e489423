#ifndef QV_TESTS_SCALE_KEPT_BLOCKS_H
#define QV_TESTS_SCALE_KEPT_BLOCKS_H

// The library's blocks still allocated, watched through its allocator hooks for the whole suite.
// The linear engine keeps its scratch block after a call on the calling thread, by design; the
// suite gives such blocks back when it ends, so that the leak checker reports only the others.

#include <cstddef>

namespace scaletest {

// Blocks allocated through the hooks and not yet freed.
size_t blocksHeld();

}  // namespace scaletest

#endif
