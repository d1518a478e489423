#ifndef QV_IMAGESYNTH_SYNTHASSERT_H
#define QV_IMAGESYNTH_SYNTHASSERT_H

// Failed invariants of texture synthesis stop the process: the description goes through the
// library's assertion handler, and should a replaced handler return, the process aborts anyway.

#include <cstdlib>

#include "platform/assertion.h"

namespace qv::synth {

inline void synthAssert(bool holds, const char* description) {
  if (holds) return;
  qv::platform::assertionFailed(description);
  abort();
}

}  // namespace qv::synth

#endif
