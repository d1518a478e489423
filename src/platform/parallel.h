#ifndef QV_PLATFORM_PARALLEL_H
#define QV_PLATFORM_PARALLEL_H

#include <cstddef>

namespace qv::platform {

// Runs fn(context, i) for every i in [0, count) on the global thread pool and returns when all
// have finished. The calling thread runs indices too.
void parallelApply(size_t count, void (*fn)(void* context, size_t index), void* context);

// The same, for any callable taking the index.
template <typename Body>
void parallelApply(size_t count, Body& body) {
  parallelApply(
      count, [](void* context, size_t index) { (*static_cast<Body*>(context))(index); }, &body);
}

}  // namespace qv::platform

#endif
