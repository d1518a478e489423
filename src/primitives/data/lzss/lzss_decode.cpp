// LZSS decoder. Tokens are read from a 32-bit accumulator, left-aligned, refilled a byte at a
// time. A match that does not fit the output is finished by the next call; the window keeps the
// last 32768 bytes written, so that a match can reach back across calls.

#include "primitives/common/tier_util.h"
#include "primitives/data/lzss/lzss_state.h"

namespace QV_TIER {
namespace {

struct DecodeCall {
  DecodeLZSSState* state;
  const Ipp8u* in;
  int inLength;
  int read;
  Ipp8u* out;
  int capacity;
  int written;

  // Brings the accumulator up to at least `bits` valid bits while input is left.
  QV_INLINE void refill(Ipp32u bits) {
    while (state->bitCount < bits && read < inLength) {
      state->accumulator |= static_cast<Ipp32u>(in[read++]) << (24 - state->bitCount);
      state->bitCount += 8;
    }
  }

  QV_INLINE Ipp32u take(Ipp32u bits) {
    const Ipp32u value = state->accumulator >> (32 - bits);
    state->accumulator <<= bits;
    state->bitCount -= bits;
    return value;
  }

  // Writes count bytes of the match at distance. Bytes from before this call come from the
  // window; overlapping copies run forward a byte at a time, repeating the pattern.
  void copyMatch(Ipp32u distance, int count) {
    Ipp8u* to = out + written;
    const intptr_t from = static_cast<intptr_t>(written) - static_cast<intptr_t>(distance);
    int k = 0;
    for (; k < count && from + k < 0; ++k) to[k] = state->window[kLzssHistory + from + k];
    if (from + k >= 0 && distance >= static_cast<Ipp32u>(count - k) && k < count) {
      __builtin_memcpy(to + k, out + from + k, static_cast<size_t>(count - k));
      k = count;
    }
    for (; k < count; ++k) to[k] = out[from + k];
    written += count;
  }

  // Writes what the budget allows of a match, keeping the rest for the next call.
  QV_INLINE void writeMatch(Ipp32u distance, int length) {
    const int count = minOf(length, capacity - written);
    copyMatch(distance, count);
    state->pendingDistance = distance;
    state->pendingLength = length - count;
  }
};

// Answers whether the output filled; otherwise the input bits ran out.
bool decodeTokens(DecodeCall& call) {
  DecodeLZSSState* state = call.state;
  if (state->pendingLength > 0) {
    call.writeMatch(state->pendingDistance, state->pendingLength);
    if (call.written == call.capacity) return true;
  }
  for (;;) {
    call.refill(9);
    if (state->accumulator >> 31) {
      if (state->bitCount < 9) return false;
      call.take(1);
      call.out[call.written++] = static_cast<Ipp8u>(call.take(8));
    } else {
      call.refill(24);
      if (state->bitCount < 24) return false;
      const Ipp32u token = call.take(24);
      call.writeMatch(token >> 8 & 0x7FFF, static_cast<int>(token & 0xFF) + 3);
    }
    if (call.written == call.capacity) return true;
  }
}

// The window takes the output of this call as its newest bytes.
void updateWindow(DecodeLZSSState* state, const Ipp8u* out, int written) {
  if (written >= kLzssHistory) {
    __builtin_memcpy(state->window, out + written - kLzssHistory, kLzssHistory);
    return;
  }
  __builtin_memmove(state->window, state->window + written, static_cast<size_t>(kLzssHistory - written));
  __builtin_memcpy(state->window + kLzssHistory - written, out, static_cast<size_t>(written));
}

}  // namespace

IppStatus ippsDecodeLZSS_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u** ppDst, int* pDstLen, IppLZSSState_8u* pLZSSState) {
  if (ppSrc == nullptr || pSrcLen == nullptr || ppDst == nullptr || pDstLen == nullptr || *ppSrc == nullptr ||
      *ppDst == nullptr)
    return ippStsNullPtrErr;
  if (*pDstLen < 1) return ippStsSizeErr;
  if (pLZSSState == nullptr) return ippStsNullPtrErr;
  DecodeCall call{decoderOf(pLZSSState), *ppSrc, maxOf(*pSrcLen, 0), 0, *ppDst, *pDstLen, 0};
  const bool full = decodeTokens(call);
  updateWindow(call.state, call.out, call.written);
  *ppSrc += call.read;
  *pSrcLen -= call.read;
  *ppDst += call.written;
  *pDstLen -= call.written;
  return full ? ippStsDstSizeLessExpected : ippStsNoErr;
}

}  // namespace QV_TIER
