#ifndef QV_TESTS_CODEC_LEAK_ALLOWANCE_H
#define QV_TESTS_CODEC_LEAK_ALLOWANCE_H

// Some failure paths keep their state allocated by design. While an object of this class lives,
// the leak checker of AddressSanitizer ignores what is allocated.

#if defined(__SANITIZE_ADDRESS__) && __has_include(<sanitizer/lsan_interface.h>)
#include <sanitizer/lsan_interface.h>
#define QV_TEST_LSAN 1
#endif

namespace codectest {

class LeakAllowance {
 public:
#ifdef QV_TEST_LSAN
  LeakAllowance() { __lsan_disable(); }
  ~LeakAllowance() { __lsan_enable(); }
#else
  LeakAllowance() {}  // user-provided, so that an unused-looking guard raises no warning
  ~LeakAllowance() {}
#endif
  LeakAllowance(const LeakAllowance&) = delete;
  LeakAllowance& operator=(const LeakAllowance&) = delete;
};

}  // namespace codectest

#endif
