#ifndef QV_PRIMITIVES_DATA_LZSS_LZSS_STATE_H
#define QV_PRIMITIVES_DATA_LZSS_LZSS_STATE_H

// The encoder and decoder states of LZSS and the constants of the stream.
//
// Both states are one block of 327744 bytes: a 64-byte header, then for the encoder prev and head
// (32768 signed 32-bit entries each) and a 65536-byte window; the decoder uses only a 32768-byte
// window right behind its header.

#include "primitives/common/tier.h"

namespace QV_TIER {

constexpr int kLzssHistory = 32768;  // positions a match may reach back, exclusive
constexpr int kLzssMinMatch = 3;
constexpr int kLzssMaxMatch = 258;
constexpr int kLzssChainLimit = 16;                                   // candidates examined per position
constexpr int kLzssEncoderWindow = 65536;                             // bytes of the encoder's window
constexpr int kLzssWindowLimit = kLzssEncoderWindow - kLzssMaxMatch;  // last offset a call may start at
constexpr int kLzssHeaderBytes = 64;
constexpr int kLzssStateBytes = kLzssHeaderBytes + 2 * kLzssHistory * 4 + kLzssEncoderWindow;  // 327744
constexpr Ipp32s kLzssFarAway = -32768;  // start value of head and prev: too far from any position

struct EncodeLZSSState {
  const Ipp16u* hashTable;
  Ipp32s* prev;       // per position modulo 32768: the previous position with the same hash
  Ipp32s* head;       // per hash: the newest position
  Ipp8u* window;      // the history buffer
  Ipp8u* windowBase;  // windowBase + position addresses that position's byte in the window
  Ipp32s position;    // running count of bytes taken in
  Ipp32u bitCount;    // pending output bits
  Ipp32u highWord;    // the bit accumulator, a 64-bit value filled from the top
  Ipp32u lowWord;
};

struct DecodeLZSSState {
  Ipp8u* window;           // the last 32768 bytes of output, newest at the end
  Ipp32u bitCount;         // valid bits in the accumulator
  Ipp32u accumulator;      // pending bits, left-aligned
  Ipp32u pendingDistance;  // distance of a match cut by a full output
  Ipp32s pendingLength;    // bytes of that match still to write
};

static_assert(sizeof(EncodeLZSSState) <= kLzssHeaderBytes);
static_assert(sizeof(DecodeLZSSState) <= kLzssHeaderBytes);
static_assert(kLzssStateBytes == 327744);

inline __attribute__((always_inline)) EncodeLZSSState* encoderOf(IppLZSSState_8u* state) {
  return reinterpret_cast<EncodeLZSSState*>(state);
}
inline __attribute__((always_inline)) DecodeLZSSState* decoderOf(IppLZSSState_8u* state) {
  return reinterpret_cast<DecodeLZSSState*>(state);
}

// The primitives of the family that exist only inside the tiers.
IppStatus ippsLZSSGetSize_8u(int* pLZSSStateSize);
IppStatus ippsEncodeLZSSInit_8u(IppLZSSState_8u* pLZSSState);
IppStatus ippsDecodeLZSSInit_8u(IppLZSSState_8u* pLZSSState);

}  // namespace QV_TIER

#endif
