// LZSS encoder: one call over the source, the window upkeep after it, and the flush.
//
// With P the position at the start of the call and S the source length, positions run from P
// while below E = P + S - 2; every position enters the hash chains, and a match is searched
// among the 16 newest candidates less than 32768 back. A match never reaches into the last two
// bytes of a call: those go out as literals, unhashed.

#include "primitives/data/lzss/lzss_bits.h"
#include "primitives/data/lzss/lzss_hash_table.h"
#include "primitives/data/lzss/lzss_state.h"

namespace QV_TIER {
namespace {

// One call's view of the bytes: positions before the call are in the window, the others in the
// source. The window also holds the first 258 bytes of the source, so that a match starting in
// the history can run on into new data.
struct EncodeCall {
  EncodeLZSSState* state;
  const Ipp8u* src;
  Ipp32s start;  // P

  QV_INLINE const Ipp8u* bytesAt(Ipp32s position) const {
    return position < start ? state->windowBase + position : src + (position - start);
  }

  // Enters a position in the chains and answers the newest earlier one with the same hash.
  QV_INLINE Ipp32s insert(Ipp32s position) const {
    const unsigned h = lzssHash(src + (position - start));
    const Ipp32s candidate = state->head[h];
    state->prev[position & (kLzssHistory - 1)] = candidate;
    state->head[h] = position;
    return candidate;
  }
};

// How many of the first limit bytes agree.
QV_INLINE int agreeingBytes(const Ipp8u* a, const Ipp8u* b, int limit) {
  int n = 0;
  for (; n + 16 <= limit; n += 16) {
    const __m128i equal = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + n)),
                                         _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + n)));
    const unsigned differ = ~static_cast<unsigned>(_mm_movemask_epi8(equal)) & 0xFFFF;
    if (differ != 0) return n + __builtin_ctz(differ);
  }
  while (n < limit && a[n] == b[n]) ++n;
  return n;
}

struct Match {
  int length;
  Ipp32s position;
};

// Walks the chain from candidate. A candidate is counted only when it agrees at the bytes best - 1
// and best, and replaces the best only when strictly longer, so the nearest of equal matches wins.
Match longestMatch(const EncodeCall& call, Ipp32s p, Ipp32s candidate, int limit) {
  const Ipp8u* current = call.src + (p - call.start);
  Match best{2, candidate};
  for (int examined = 1;; ++examined) {
    const Ipp8u* earlier = call.bytesAt(candidate);
    if (earlier[best.length - 1] == current[best.length - 1] && earlier[best.length] == current[best.length]) {
      const int length = agreeingBytes(earlier, current, limit);
      if (length > best.length) {
        best = {length, candidate};
        if (length >= limit) break;
      }
    }
    if (examined == kLzssChainLimit) break;
    candidate = call.state->prev[candidate & (kLzssHistory - 1)];
    if (p - candidate >= kLzssHistory) break;
  }
  return best;
}

// Tokens from the call's start while below E, then the last bytes as literals. Answers the
// positions consumed; *full tells whether the output filled.
Ipp32s encodeTokens(const EncodeCall& call, Ipp32s sourceLength, LzssBitWriter& writer, bool* full) {
  const Ipp32s end = call.start + sourceLength - 2;
  Ipp32s p = call.start;
  *full = false;
  while (p < end) {
    const Ipp32s candidate = call.insert(p);
    const int limit = minOf(end - p, kLzssMaxMatch);
    Match found{1, 0};
    if (p - candidate < kLzssHistory && limit >= kLzssMinMatch) found = longestMatch(call, p, candidate, limit);
    if (found.length < kLzssMinMatch) {
      writer.literal(call.src[p - call.start]);
      ++p;
    } else {
      writer.match(static_cast<Ipp32u>(p - found.position), static_cast<Ipp32u>(found.length));
      for (Ipp32s q = p + 1; q < p + found.length; ++q) call.insert(q);
      p += found.length;
    }
    if (writer.drain()) {
      *full = true;
      return p - call.start;
    }
  }
  for (; p < call.start + sourceLength; ++p) {
    writer.literal(call.src[p - call.start]);
    if (writer.drain()) {
      *full = true;
      return p + 1 - call.start;
    }
  }
  return p - call.start;
}

// Keeps the last 32768 bytes in the window and room for the next call's first 258 bytes at the
// write position.
void updateWindow(EncodeLZSSState* state, const Ipp8u* src, Ipp32s start, Ipp32s consumed) {
  Ipp8u* window = state->window;
  const Ipp32s end = start + consumed;
  if (consumed >= kLzssHistory) {
    __builtin_memcpy(window, src + consumed - kLzssHistory, kLzssHistory);
    state->windowBase = window + kLzssHistory - end;
    return;
  }
  const intptr_t endOffset = (state->windowBase + end) - window;
  if (endOffset > kLzssWindowLimit) {
    const Ipp32s older = kLzssHistory - consumed;  // history bytes from before this call
    __builtin_memmove(window, state->windowBase + start - older, static_cast<size_t>(older));
    __builtin_memcpy(window + older, src, static_cast<size_t>(consumed));
    state->windowBase = window + kLzssHistory - end;
    return;
  }
  if (consumed > kLzssMaxMatch)
    __builtin_memcpy(state->windowBase + start + kLzssMaxMatch, src + kLzssMaxMatch,
                     static_cast<size_t>(consumed - kLzssMaxMatch));
}

LzssBitWriter writerFor(const EncodeLZSSState* state, Ipp8u* out, int capacity) {
  return {static_cast<Ipp64u>(state->highWord) << 32 | state->lowWord, state->bitCount, out, 0, capacity};
}

void keepBits(EncodeLZSSState* state, const LzssBitWriter& writer) {
  state->highWord = static_cast<Ipp32u>(writer.bits >> 32);
  state->lowWord = static_cast<Ipp32u>(writer.bits);
  state->bitCount = writer.count;
}

}  // namespace

IppStatus ippsEncodeLZSS_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u** ppDst, int* pDstLen, IppLZSSState_8u* pLZSSState) {
  if (ppSrc == nullptr || pSrcLen == nullptr || ppDst == nullptr || pDstLen == nullptr || pLZSSState == nullptr ||
      *ppSrc == nullptr || *ppDst == nullptr)
    return ippStsNullPtrErr;
  if (*pDstLen < 1) return ippStsDstSizeLessExpected;
  if (*pSrcLen < 1) return ippStsNoErr;
  EncodeLZSSState* state = encoderOf(pLZSSState);
  LzssBitWriter writer = writerFor(state, *ppDst, *pDstLen);
  // Whole bytes left from an earlier call that stopped at a full output go first.
  bool full = writer.drain();
  Ipp32s consumed = 0;
  if (!full) {
    const EncodeCall call{state, *ppSrc, state->position};
    __builtin_memcpy(state->windowBase + call.start, call.src, static_cast<size_t>(minOf(*pSrcLen, kLzssMaxMatch)));
    consumed = encodeTokens(call, *pSrcLen, writer, &full);
    updateWindow(state, call.src, call.start, consumed);
    state->position = call.start + consumed;
  }
  keepBits(state, writer);
  *ppSrc += consumed;
  *pSrcLen -= consumed;
  *ppDst += writer.written;
  *pDstLen -= writer.written;
  return full ? ippStsDstSizeLessExpected : ippStsNoErr;
}

// Writes the pending bits as whole bytes, the last one filled with 0 bits. When everything fits
// the state is left as it was; when the output fills first, the rest stays in the state.
IppStatus ippsEncodeLZSSFlush_8u(Ipp8u** ppDst, int* pDstLen, IppLZSSState_8u* pLZSSState) {
  if (ppDst == nullptr || pDstLen == nullptr || pLZSSState == nullptr || *ppDst == nullptr) return ippStsNullPtrErr;
  if (*pDstLen < 1) return ippStsSizeErr;
  EncodeLZSSState* state = encoderOf(pLZSSState);
  LzssBitWriter writer = writerFor(state, *ppDst, *pDstLen);
  const int pendingBytes = static_cast<int>((writer.count + 7) / 8);
  const bool fits = pendingBytes <= *pDstLen;
  writer.count = static_cast<Ipp32u>(8 * minOf(pendingBytes, *pDstLen));
  writer.drain();
  if (!fits) {
    writer.count = state->bitCount - static_cast<Ipp32u>(8 * writer.written);
    keepBits(state, writer);
  }
  *ppDst += writer.written;
  *pDstLen -= writer.written;
  return fits ? ippStsNoErr : ippStsDstSizeLessExpected;
}

}  // namespace QV_TIER
