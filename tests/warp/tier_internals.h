#ifndef QV_TESTS_WARP_TIER_INTERNALS_H
#define QV_TESTS_WARP_TIER_INTERNALS_H

// The warp family's kernels that live inside each tier, declared as the tiers define them, and
// gathered by tier so that a test can call the copy of the tier it forces.

#include "qvimage/qvimage.h"
#include "support/tiers.h"

#define QV_DECLARE_WARP_INTERNALS(tier)                                                                                \
  namespace tier {                                                                                                     \
  struct CubicWeightTable {                                                                                            \
    alignas(64) Ipp16s entries[1537][2];                                                                               \
  };                                                                                                                   \
  extern const CubicWeightTable ownpi_cubicWeights;                                                                    \
  int ownpi_CheckQuad(const double quad[4][2]);                                                                        \
  int* ownpi_ClipQuad(const double quad[4][2], IppiPoint first, IppiPoint last, bool winding, int* firstRow,           \
                      int* lastRow);                                                                                   \
  void ownpi_SmoothBorder(Ipp8u* dst, int dstStep, int type, const double quad[4][2], IppiPoint first, IppiPoint last, \
                          bool winding);                                                                               \
  void ownpi_dInterVector_NN_8_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,           \
                                  int count, int limitX, int limitY);                                                  \
  void ownpi_dInterVector_L_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,           \
                                  int count, int limitX, int limitY);                                                  \
  void ownpi_dInterVectorClip_C_8u_C1(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,       \
                                      int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY);    \
  void ownpi_dInterVectorClip_C_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,       \
                                      int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY);    \
  void ownpi_dInterVectorClip_C_16u_C4(const Ipp16u* src, int srcStep, Ipp16u* dst, const float* x, const float* y,    \
                                       int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY);   \
  int setIndexCR(int size, double coordinate, int index[4]);                                                           \
  IppStatus ippiGetRotateQuad(IppiRect srcRoi, double quad[4][2], double angle, double xShift, double yShift);         \
  IppStatus ippiGetAffineQuad(IppiRect srcRoi, double quad[4][2], const double coeffs[2][3]);                          \
  IppStatus ownpi_Rotate(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,  \
                         IppiRect dstRoi, double angle, double xShift, double yShift, int interpolation, int type);    \
  IppStatus ownpi_WarpAffine(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,           \
                             int dstStep, IppiRect dstRoi, const double coeffs[2][3], int interpolation, int type);    \
  }

QV_DECLARE_WARP_INTERNALS(m7)
QV_DECLARE_WARP_INTERNALS(u8)
QV_DECLARE_WARP_INTERNALS(y8)
QV_DECLARE_WARP_INTERNALS(e9)

namespace warptest {

struct WarpInternals {
  const Ipp16s (*cubicWeights)[2];
  decltype(&m7::ownpi_CheckQuad) checkQuad;
  decltype(&m7::ownpi_ClipQuad) clipQuad;
  decltype(&m7::ownpi_SmoothBorder) smoothBorder;
  decltype(&m7::ownpi_dInterVector_NN_8_C4) nearestVector;
  decltype(&m7::ownpi_dInterVector_L_8u_C4) linearVector;
  decltype(&m7::ownpi_dInterVectorClip_C_8u_C1) cubicVector8uC1;
  decltype(&m7::ownpi_dInterVectorClip_C_8u_C4) cubicVector8uC4;
  decltype(&m7::ownpi_dInterVectorClip_C_16u_C4) cubicVector16uC4;
  decltype(&m7::setIndexCR) setIndexCR;
  decltype(&m7::ippiGetRotateQuad) getRotateQuad;
  decltype(&m7::ippiGetAffineQuad) getAffineQuad;
  decltype(&m7::ownpi_Rotate) rotate;
  decltype(&m7::ownpi_WarpAffine) warpAffine;
};

// The kernels of the tier (by name: m7, u8, y8, e9).
const WarpInternals& internalsOf(const qvtest::Tier& tier);
// The kernels of the tier in force.
const WarpInternals& currentInternals();

}  // namespace warptest

#endif
