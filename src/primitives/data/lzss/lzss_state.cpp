// LZSS state blocks: size, allocation, initialisation and release, for both sides.

#include "primitives/data/lzss/lzss_state.h"

#include "primitives/data/lzss/lzss_hash_table.h"
#include "primitives/data/memory/memory.h"

namespace QV_TIER {
namespace {

Ipp8u* bodyOf(IppLZSSState_8u* state) { return reinterpret_cast<Ipp8u*>(state) + kLzssHeaderBytes; }

IppStatus allocateState(IppLZSSState_8u** ppLZSSState, IppStatus (*init)(IppLZSSState_8u*)) {
  if (ppLZSSState == nullptr) return ippStsNullPtrErr;
  Ipp8u* block = ippsMalloc_8u(kLzssStateBytes);
  if (block == nullptr) return ippStsMemAllocErr;
  auto* state = reinterpret_cast<IppLZSSState_8u*>(block);
  init(state);
  *ppLZSSState = state;
  return ippStsNoErr;
}

}  // namespace

IppStatus ippsLZSSGetSize_8u(int* pLZSSStateSize) {
  if (pLZSSStateSize == nullptr) return ippStsNullPtrErr;
  *pLZSSStateSize = kLzssStateBytes;
  return ippStsNoErr;
}

IppStatus ippsEncodeLZSSInit_8u(IppLZSSState_8u* pLZSSState) {
  if (pLZSSState == nullptr) return ippStsNullPtrErr;
  EncodeLZSSState* state = encoderOf(pLZSSState);
  Ipp8u* body = bodyOf(pLZSSState);
  state->hashTable = lzssHashTable;
  state->prev = reinterpret_cast<Ipp32s*>(body);
  state->head = state->prev + kLzssHistory;
  state->window = reinterpret_cast<Ipp8u*>(state->head + kLzssHistory);
  state->windowBase = state->window;
  for (int i = 0; i < 2 * kLzssHistory; ++i) state->prev[i] = kLzssFarAway;
  state->position = 0;
  state->bitCount = 0;
  state->highWord = 0;
  state->lowWord = 0;
  return ippStsNoErr;
}

// The window starts all zero: a distance beyond the history reads zero bytes.
IppStatus ippsDecodeLZSSInit_8u(IppLZSSState_8u* pLZSSState) {
  if (pLZSSState == nullptr) return ippStsNullPtrErr;
  DecodeLZSSState* state = decoderOf(pLZSSState);
  state->window = bodyOf(pLZSSState);
  __builtin_memset(state->window, 0, kLzssHistory);
  state->bitCount = 0;
  state->accumulator = 0;
  state->pendingDistance = 0;
  state->pendingLength = 0;
  return ippStsNoErr;
}

IppStatus ippsEncodeLZSSInitAlloc_8u(IppLZSSState_8u** ppLZSSState) {
  return allocateState(ppLZSSState, ippsEncodeLZSSInit_8u);
}

IppStatus ippsDecodeLZSSInitAlloc_8u(IppLZSSState_8u** ppLZSSState) {
  return allocateState(ppLZSSState, ippsDecodeLZSSInit_8u);
}

IppStatus ippsLZSSFree_8u(IppLZSSState_8u* pLZSSState) {
  QV_TIER::ippsFree(pLZSSState);
  return ippStsNoErr;
}

}  // namespace QV_TIER
