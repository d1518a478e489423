#ifndef QV_TESTS_ARITH_TIER_FORMS_H
#define QV_TESTS_ARITH_TIER_FORMS_H

// The arithmetic primitives that exist only inside the tiers, reached directly in each tier's
// namespace: the forms with a separate destination and the long-vector maximum.

#include <vector>

#include "qvimage/ippdefs.h"

#define QV_DECLARE_ARITH_TIER_FORMS(tier)                                                          \
  namespace tier {                                                                                 \
  IppStatus ippiMulScale_8u_C1R(const Ipp8u*, int, const Ipp8u*, int, Ipp8u*, int, IppiSize);      \
  IppStatus ippiMulScale_8u_C4R(const Ipp8u*, int, const Ipp8u*, int, Ipp8u*, int, IppiSize);      \
  IppStatus ippiMulCScale_8u_C1R(const Ipp8u*, int, Ipp8u, Ipp8u*, int, IppiSize);                 \
  IppStatus ippiMulCScale_8u_C4R(const Ipp8u*, int, const Ipp8u*, Ipp8u*, int, IppiSize);          \
  IppStatus ippiThreshold_Val_8u_C1R(const Ipp8u*, int, Ipp8u*, int, IppiSize, Ipp8u, Ipp8u, int); \
  IppStatus ippsMaxEvery_8u_I(const Ipp8u*, Ipp8u*, int);                                          \
  }
QV_DECLARE_ARITH_TIER_FORMS(m7)
QV_DECLARE_ARITH_TIER_FORMS(u8)
QV_DECLARE_ARITH_TIER_FORMS(y8)
QV_DECLARE_ARITH_TIER_FORMS(e9)
#undef QV_DECLARE_ARITH_TIER_FORMS

namespace arithtest {

struct TierForms {
  const char* name;
  decltype(&m7::ippiMulScale_8u_C1R) mulScaleC1;
  decltype(&m7::ippiMulScale_8u_C4R) mulScaleC4;
  decltype(&m7::ippiMulCScale_8u_C1R) mulCScaleC1;
  decltype(&m7::ippiMulCScale_8u_C4R) mulCScaleC4;
  decltype(&m7::ippiThreshold_Val_8u_C1R) threshold;
  decltype(&m7::ippsMaxEvery_8u_I) maxEvery;
};

#define QV_ARITH_TIER_FORMS(tier)                                                            \
  TierForms {                                                                                \
#tier, tier::ippiMulScale_8u_C1R, tier::ippiMulScale_8u_C4R, tier::ippiMulCScale_8u_C1R, \
        tier::ippiMulCScale_8u_C4R, tier::ippiThreshold_Val_8u_C1R, tier::ippsMaxEvery_8u_I  \
  }

inline const std::vector<TierForms>& tierForms() {
  static const std::vector<TierForms> forms{QV_ARITH_TIER_FORMS(m7), QV_ARITH_TIER_FORMS(u8), QV_ARITH_TIER_FORMS(y8),
                                            QV_ARITH_TIER_FORMS(e9)};
  return forms;
}

#undef QV_ARITH_TIER_FORMS

}  // namespace arithtest

#endif
