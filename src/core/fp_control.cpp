// Accessors of the floating-point control and status words: the SSE unit's (MXCSR) and the
// x87 unit's.

#include <xmmintrin.h>

#include <cmath>

#include "qvimage/ippcore.h"

namespace {

unsigned short readX87Control() {
  unsigned short word = 0;
  __asm__ volatile("fnstcw %0" : "=m"(word));
  return word;
}

void writeX87Control(unsigned short word) { __asm__ volatile("fldcw %0" : : "m"(word)); }

unsigned short readX87Status() {
  unsigned short word = 0;
  __asm__ volatile("fnstsw %0" : "=m"(word));
  return word;
}

void clearX87Exceptions() { __asm__ volatile("fnclex"); }

constexpr unsigned kSseRoundingField = 0x6000;  // bits 13-14
constexpr unsigned kSseExceptionFlags = 0x3F;
constexpr unsigned kSseDenormalsAreZero = 0x40;

}  // namespace

extern "C" {

QV_API int ipp_isnan(double value) { return std::isnan(value) ? 1 : 0; }
QV_API int ipp_finite(double value) { return std::isfinite(value) ? 1 : 0; }

// Sets the rounding field of the SSE control word: 0 nearest, 1 down, 2 up, 3 toward zero.
QV_API void ipp_set_rc_ssx(unsigned int roundingMode) {
  _mm_setcsr((_mm_getcsr() & ~kSseRoundingField) | ((roundingMode & 3u) << 13));
}

QV_API void ipp_set_cw_ssx(unsigned int controlWord) { _mm_setcsr(controlWord); }

// Clears the exception flags and answers the word as it was.
QV_API unsigned int ipp_clear_ssx(void) {
  const unsigned int word = _mm_getcsr();
  _mm_setcsr(word & ~kSseExceptionFlags);
  return word;
}

QV_API int ipp_tst_daz_ssx(void) { return (_mm_getcsr() & kSseDenormalsAreZero) ? 1 : 0; }

QV_API unsigned int ipp_control87(unsigned int newValue, unsigned int mask) {
  const unsigned short word = readX87Control();
  const unsigned short updated = static_cast<unsigned short>((word & ~mask) | (newValue & mask));
  if (mask != 0) writeX87Control(updated);
  return mask != 0 ? updated : word;
}

QV_API unsigned int ipp_status87(void) { return readX87Status(); }

QV_API unsigned int ipp_clear87(void) {
  const unsigned int status = readX87Status();
  clearX87Exceptions();
  return status;
}

// Rounding control is bits 10-11 of the x87 control word, precision control bits 8-9.
QV_API void ipp_set_rcpc_fpu(unsigned int roundingMode, unsigned int precision) {
  const unsigned short word = readX87Control();
  writeX87Control(
      static_cast<unsigned short>((word & ~0x0F00u) | ((roundingMode & 3u) << 10) | ((precision & 3u) << 8)));
}

QV_API void ipp_set_cw_fpu(unsigned int controlWord) { writeX87Control(static_cast<unsigned short>(controlWord)); }
QV_API void ps_set_cw_fpu(unsigned int controlWord) { writeX87Control(static_cast<unsigned short>(controlWord)); }
QV_API unsigned int ps_get_cw_fpu(void) { return readX87Control(); }
QV_API unsigned int ps_get_sw_fpu(void) { return readX87Status(); }
QV_API void ps_clear_fpu(void) { clearX87Exceptions(); }
QV_API void ps_set_ssx(unsigned int controlWord) { _mm_setcsr(controlWord); }
QV_API unsigned int ps_get_ssx(void) { return _mm_getcsr(); }

}  // extern "C"
