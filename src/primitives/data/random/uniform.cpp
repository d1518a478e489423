// Uniform generators: each value is the generator's output times scale plus mid, in double,
// truncated for the 16-bit form and rounded to float for the float form. The state is kept,
// so that the next call continues the stream.

#include "primitives/data/memory/memory.h"
#include "primitives/data/random/generator.h"
#include "primitives/data/random/random.h"

namespace QV_TIER {
namespace {

constexpr int32_t kTag16s = 36;
constexpr int32_t kTag32f = 37;
constexpr double kOutputScale = 2.3283064365387e-10;  // about 2^-32

struct UniformState {
  int32_t tag;
  uint32_t seed;
  double low;
  double high;
  double mid;
  double scale;
  RandomGenerator generator;
};

UniformState* newState(int32_t tag, double low, double high, double mid, double scale, unsigned int seed) {
  auto* state = reinterpret_cast<UniformState*>(ippsMalloc_8u(static_cast<int>(sizeof(UniformState))));
  if (state == nullptr) return nullptr;
  state->tag = tag;
  state->seed = seed;
  state->low = low;
  state->high = high;
  state->mid = mid;
  state->scale = scale;
  state->generator = seededGenerator(seed);
  return state;
}

IppStatus checkDraw(const void* dst, int len, const UniformState* state, int32_t tag) {
  if (dst == nullptr || state == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  if (state->tag != tag) return ippStsContextMatchErr;
  return ippStsNoErr;
}

IppStatus freeState(UniformState* state, int32_t tag) {
  if (state == nullptr) return ippStsNullPtrErr;
  if (state->tag != tag) return ippStsContextMatchErr;
  ippsFree(state);
  return ippStsNoErr;
}

QV_INLINE double nextUniform(UniformState& state) {
  return static_cast<double>(nextRandom(state.generator)) * state.scale + state.mid;
}

}  // namespace

IppStatus ippsRandUniformInitAlloc_16s(IppsRandUniState_16s** ppState, Ipp16s low, Ipp16s high, unsigned int seed) {
  if (ppState == nullptr) return ippStsNullPtrErr;
  const double mid = (low + high) * 0.5;
  const double scale = (high - low) * kOutputScale;
  UniformState* state = newState(kTag16s, low, high, mid, scale, seed);
  if (state == nullptr) return ippStsMemAllocErr;
  *ppState = reinterpret_cast<IppsRandUniState_16s*>(state);
  return ippStsNoErr;
}

// mid and scale take the float sum and difference, then go on in double.
IppStatus ippsRandUniformInitAlloc_32f(IppsRandUniState_32f** ppState, Ipp32f low, Ipp32f high, unsigned int seed) {
  if (ppState == nullptr) return ippStsNullPtrErr;
  const double mid = (low + high) * 0.5;
  const double scale = (high - low) * kOutputScale;
  UniformState* state = newState(kTag32f, low, high, mid, scale, seed);
  if (state == nullptr) return ippStsMemAllocErr;
  *ppState = reinterpret_cast<IppsRandUniState_32f*>(state);
  return ippStsNoErr;
}

IppStatus ippsRandUniform_16s(Ipp16s* pDst, int len, IppsRandUniState_16s* pState) {
  auto* state = reinterpret_cast<UniformState*>(pState);
  const IppStatus status = checkDraw(pDst, len, state, kTag16s);
  if (status != ippStsNoErr) return status;
  for (int i = 0; i < len; ++i) pDst[i] = static_cast<Ipp16s>(static_cast<int>(nextUniform(*state)));
  return ippStsNoErr;
}

IppStatus ippsRandUniform_32f(Ipp32f* pDst, int len, IppsRandUniState_32f* pState) {
  auto* state = reinterpret_cast<UniformState*>(pState);
  const IppStatus status = checkDraw(pDst, len, state, kTag32f);
  if (status != ippStsNoErr) return status;
  for (int i = 0; i < len; ++i) pDst[i] = static_cast<Ipp32f>(nextUniform(*state));
  return ippStsNoErr;
}

IppStatus ippsRandUniformFree_16s(IppsRandUniState_16s* pState) {
  return freeState(reinterpret_cast<UniformState*>(pState), kTag16s);
}

IppStatus ippsRandUniformFree_32f(IppsRandUniState_32f* pState) {
  return freeState(reinterpret_cast<UniformState*>(pState), kTag32f);
}

}  // namespace QV_TIER
