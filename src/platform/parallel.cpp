#include "platform/parallel.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/partitioner.h>

namespace qv::platform {

void parallelApply(size_t count, void (*fn)(void* context, size_t index), void* context) {
  // One task per index: strips are few and of equal weight.
  tbb::parallel_for(
      tbb::blocked_range<size_t>(0, count, 1),
      [fn, context](const tbb::blocked_range<size_t>& range) {
        for (size_t index = range.begin(); index != range.end(); ++index) fn(context, index);
      },
      tbb::simple_partitioner());
}

}  // namespace qv::platform
