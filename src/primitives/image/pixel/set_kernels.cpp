// The fill row kernels. One code for every tier; each tier builds its own copy.

#include "primitives/image/pixel/set_kernels.h"

#include "primitives/common/tier_util.h"
#include "primitives/image/pixel/string_ops.h"

namespace QV_TIER {
namespace {

constexpr int kStreamingFillStart = 524288;

// 64 bytes a round at a 16-aligned destination; answers the bytes written. Long cached runs
// take the string store of the block's first four bytes, which repeat every four.
size_t fillRounds(__m128i block, Ipp8u* dst, size_t length, bool streaming) {
  size_t done = 0;
  if (!streaming && length >= kStringOpStart) {
    const size_t rounds = length & ~static_cast<size_t>(63);
    stringFill32(dst, static_cast<uint32_t>(_mm_cvtsi128_si32(block)), rounds / 4);
    return rounds;
  }
  if (streaming) {
    for (; done + 64 <= length; done += 64)
      for (int i = 0; i < 64; i += 16) _mm_stream_si128(reinterpret_cast<__m128i*>(dst + done + i), block);
    _mm_sfence();
    return done;
  }
  for (; done + 64 <= length; done += 64)
    for (int i = 0; i < 64; i += 16) _mm_store_si128(reinterpret_cast<__m128i*>(dst + done + i), block);
  return done;
}

// Up to three 16-byte blocks; answers the bytes written.
size_t fillBlocks(__m128i block, Ipp8u* dst, size_t length) {
  size_t done = 0;
  for (; done + 16 <= length && done < 48; done += 16) storeBlock(dst + done, block);
  return done;
}

// The head block that brings a row of 64 bytes or more to a 16-byte boundary; answers the
// bytes it advanced, 0 when the row already starts on a boundary.
size_t fillHead(__m128i block, Ipp8u* dst) {
  const size_t misalignment = addressOf(dst) & 15;
  if (misalignment == 0) return 0;
  storeBlock(dst, block);
  return 16 - misalignment;
}

}  // namespace

bool owniSetStreams(int total) {
  if (total <= kStreamingFillStart) return false;
  int cache = 0;
  if (ippGetMaxCacheSizeB(&cache) != ippStsNoErr) return false;
  return total >= cache;
}

void owniSet_8u_C1_M7(const Ipp8u* pattern, Ipp8u* dst, size_t length, bool streaming) {
  const __m128i block = loadBlock(pattern);
  size_t done = 0;
  if (length >= 64) {
    done = fillHead(block, dst);
    done += fillRounds(block, dst + done, length - done, streaming);
  }
  done += fillBlocks(block, dst + done, length - done);
  for (; done < length; ++done) dst[done] = pattern[0];
}

void owniSet_8u_C4_M7(const Ipp8u* pattern, Ipp8u* dst, size_t length, bool streaming) {
  __m128i block = loadBlock(pattern);
  size_t done = 0;
  if (length >= 64) {
    done = fillHead(block, dst);
    block = loadBlock(pattern + done);  // byte done of the row is channel done % 4
    done += fillRounds(block, dst + done, length - done, streaming);
  }
  done += fillBlocks(block, dst + done, length - done);
  const uint32_t pixel = load32(pattern);
  for (size_t end = length; end > done; end -= 4) store32(dst + end - 4, pixel);
}

}  // namespace QV_TIER
