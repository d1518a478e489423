// The copy roads of the tiers. Every road writes the same bytes; they differ in memory traffic:
//  - u8, y8: owniCopy8uas. Rows below 64 bytes take the small path; totals below 1 MiB, or below
//    half the cache named by CPUID leaf 2 in TableCacheSize, take the cached path; larger ones
//    stream with non-temporal stores after touching the source 256 KiB ahead.
//  - m7: owniCopy_8u_C1_M7 per row, streaming when the total is above 1 MiB.
//  - e9: owniCopy8u_E9 for rows below 1 KiB; owniCopy8u_cn streams only when twice the total
//    exceeds both 4 MiB and the cache size that ippGetMaxCacheSizeB knows.
// On the cached roads, forward rows of 1 KiB and more are moved by the string copy.

#include "primitives/image/pixel/copy_kernels.h"

#include "core/cpu_state.h"
#include "primitives/common/tier_util.h"
#include "primitives/image/pixel/string_ops.h"

namespace QV_TIER {
namespace {

constexpr size_t kStreamingStart = 0x100000;  // 1 MiB

// Copies the 16-, 8- and 4-byte blocks that the bits of length name, from offset done on, and
// answers the offset after them.
QV_INLINE size_t copyBlocks16To4(const Ipp8u* src, Ipp8u* dst, size_t length, size_t done) {
  if (length & 16) {
    storeBlock(dst + done, loadBlock(src + done));
    done += 16;
  }
  if (length & 8) {
    store64(dst + done, load64(src + done));
    done += 8;
  }
  if (length & 4) {
    store32(dst + done, load32(src + done));
    done += 4;
  }
  return done;
}

// 64 bytes from src to a 16-aligned dst; SourceAligned picks aligned loads.
template <bool SourceAligned, bool Streaming>
QV_INLINE void copy64(const Ipp8u* src, Ipp8u* dst) {
  for (int i = 0; i < 64; i += 16) {
    const __m128i v = SourceAligned ? loadAlignedBlock(src + i) : loadBlock(src + i);
    if (Streaming)
      streamBlock(dst + i, v);
    else
      storeAlignedBlock(dst + i, v);
  }
}

// Stores one unaligned block at a destination that is not 16-aligned and answers how many
// bytes it advanced to reach the next 16-byte boundary.
QV_INLINE size_t alignDestination16(const Ipp8u* src, Ipp8u* dst) {
  const size_t misalignment = addressOf(dst) & 15;
  if (misalignment == 0) return 0;
  storeBlock(dst, loadBlock(src));
  return 16 - misalignment;
}

// Forward copy at 64 bytes a round from a 16-aligned destination, then the tail. A long cached
// row is moved by the string copy, which writes the same bytes faster.
template <bool SourceAligned, bool Streaming>
void copyForward(const Ipp8u* src, Ipp8u* dst, size_t length) {
  if (!Streaming && length >= kStringOpStart) {
    stringCopy(src, dst, length);
    return;
  }
  size_t done = 0;
  for (; done + 64 <= length; done += 64) copy64<SourceAligned, Streaming>(src + done, dst + done);
  owniCopySmallRow(src + done, dst + done, length - done);
}

#if QV_TIER_LEVEL == 2 || QV_TIER_LEVEL == 3

// Both 16-aligned: the odd bytes at the end first, by 1, 2, 4, 8, 16 and 32, then 64 bytes a
// round from the end to the start. Taken when the source lies just below the destination
// within a page, where a forward copy would stall on false store-to-load dependencies.
void copyBackward(const Ipp8u* src, Ipp8u* dst, size_t length) {
  size_t end = length;
  if (end & 1) {
    end -= 1;
    dst[end] = src[end];
  }
  if (end & 2) {
    end -= 2;
    store16(dst + end, load16(src + end));
  }
  if (end & 4) {
    end -= 4;
    store32(dst + end, load32(src + end));
  }
  if (end & 8) {
    end -= 8;
    store64(dst + end, load64(src + end));
  }
  if (end & 16) {
    end -= 16;
    storeAlignedBlock(dst + end, loadAlignedBlock(src + end));
  }
  if (end & 32) {
    end -= 32;
    storeAlignedBlock(dst + end + 16, loadAlignedBlock(src + end + 16));
    storeAlignedBlock(dst + end, loadAlignedBlock(src + end));
  }
  while (end != 0) {
    end -= 64;
    copy64<true, false>(src + end, dst + end);
  }
}

// Backward exactly when, modulo 4096, the source lies at most 160 bytes below the destination.
bool prefersBackward(const Ipp8u* src, const Ipp8u* dst) {
  const long d = static_cast<long>(addressOf(src) & 0xFFF) - static_cast<long>(addressOf(dst) & 0xFFF);
  return d >= 0xF60 || (d < 0 && d >= -0xA0);
}

// Aligns the destination to 16 bytes, then picks aligned or unaligned source loads. When both
// are aligned, the page offsets choose between a forward and a backward copy.
void cachedRow(const Ipp8u* src, Ipp8u* dst, size_t length) {
  const size_t head = alignDestination16(src, dst);
  src += head;
  dst += head;
  length -= head;
  if (!isAligned(src, 16))
    copyForward<false, false>(src, dst, length);
  else if (prefersBackward(src, dst))
    copyBackward(src, dst, length);
  else
    copyForward<true, false>(src, dst, length);
}

// Reads one byte of each 64-byte line so that the lines are in cache before the stores.
void touchForward(const Ipp8u* src, size_t length) {
  for (size_t i = 0; i < length; i += 64) (void)*static_cast<const volatile Ipp8u*>(src + i);
}

void touchBackward(const Ipp8u* src, size_t length) {
  for (size_t i = length; i >= 64; i -= 64) (void)*static_cast<const volatile Ipp8u*>(src + i - 64);
  if (length % 64 != 0) (void)*static_cast<const volatile Ipp8u*>(src);
}

void streamBlocks16(const Ipp8u* src, Ipp8u* dst, size_t length) {
  for (size_t i = 0; i + 16 <= length; i += 16) streamBlock(dst + i, loadBlock(src + i));
}

void streamingRow(const Ipp8u* src, Ipp8u* dst, size_t length) {
  constexpr size_t kTouchBlock = 0x40000;  // 256 KiB
  while (length != 0 && !isAligned(dst, 16)) {
    *dst++ = *src++;
    --length;
  }
  for (; length >= kTouchBlock; length -= kTouchBlock, src += kTouchBlock, dst += kTouchBlock) {
    touchForward(src, kTouchBlock);
    streamBlocks16(src, dst, kTouchBlock);
  }
  touchBackward(src, length);
  const size_t blocks = length & ~static_cast<size_t>(15);
  streamBlocks16(src, dst, blocks);
  for (size_t i = blocks; i < length; ++i) dst[i] = src[i];
}

// The compact cache table of the copy: descriptor, then the size packed as its high four bits
// shifted left by 18 plus the low four bits. The first 43 rows of tableCache, 512 KiB and up.
const Ipp8u TableCacheSize[][2] = {
    {0xEC, 0x35}, {0xEB, 0x93}, {0x4D, 0x16}, {0xEA, 0x34}, {0x4C, 0x34}, {0xE4, 0x15}, {0xDE, 0x15}, {0x4B, 0x15},
    {0x47, 0x15}, {0x4E, 0x33}, {0x4A, 0x33}, {0xE3, 0x14}, {0xDD, 0x14}, {0xD8, 0x14}, {0x49, 0x14}, {0x29, 0x14},
    {0x46, 0x14}, {0x48, 0x32}, {0xE2, 0x13}, {0xDC, 0x13}, {0xD7, 0x13}, {0xD2, 0x13}, {0x25, 0x13}, {0x7D, 0x13},
    {0x85, 0x13}, {0x45, 0x13}, {0xD6, 0x12}, {0xD1, 0x12}, {0x23, 0x12}, {0x87, 0x12}, {0x7C, 0x12}, {0x78, 0x12},
    {0x84, 0x12}, {0x44, 0x12}, {0xD0, 0x11}, {0x22, 0x11}, {0x7B, 0x11}, {0x80, 0x11}, {0x86, 0x11}, {0x3E, 0x11},
    {0x7F, 0x11}, {0x83, 0x11}, {0x43, 0x11}, {0x00, 0x00},
};

// Answers the cache size from leaf 2, or 0 when it is not known. Asked on every large copy.
size_t copyCacheSize() {
  if (!ipp_is_GenuineIntel()) return 0;
  Ipp8u bytes[20];
  int searchEnd = 0;
  if (!qv::core::readLeaf2Descriptors(bytes, &searchEnd)) return 0;
  for (const Ipp8u* row = TableCacheSize[0]; row[0] != 0; row += 2)
    if (qv::core::descriptorPresent(bytes, searchEnd, row[0]))
      return static_cast<size_t>(row[1] >> 4) << (18 + (row[1] & 15));
  return 0;
}

qv::pixel::CopyRoad roadOf8uas(size_t rowBytes, size_t total) {
  if (rowBytes < 64) return qv::pixel::CopyRoad::kSmall;
  if (total < kStreamingStart) return qv::pixel::CopyRoad::kCached;
  const size_t cache = copyCacheSize();
  if (cache == 0 || total < cache / 2) return qv::pixel::CopyRoad::kCached;
  return qv::pixel::CopyRoad::kStreaming;
}

#elif QV_TIER_LEVEL == 1

void owniCopy_8u_C1_M7(const Ipp8u* src, Ipp8u* dst, size_t length, bool streaming) {
  if (length < 64) {
    owniCopySmallRow(src, dst, length);
    return;
  }
  const size_t head = alignDestination16(src, dst);
  src += head;
  dst += head;
  length -= head;
  if (streaming) {
    copyForward<false, true>(src, dst, length);
    _mm_sfence();
  } else if (isAligned(src, 16)) {
    copyForward<true, false>(src, dst, length);
  } else {
    copyForward<false, false>(src, dst, length);
  }
}

#else  // e9

QV_INLINE __m256i load32Block(const Ipp8u* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
QV_INLINE void store32Block(Ipp8u* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }

// The cached copy of this tier: 64 bytes a round with 32-byte loads and stores; long rows by
// the string copy.
void owniCopy8u_E9(const Ipp8u* src, Ipp8u* dst, size_t length) {
  if (length >= kStringOpStart) {
    stringCopy(src, dst, length);
    return;
  }
  size_t done = 0;
  for (; done + 64 <= length; done += 64) {
    const __m256i a = load32Block(src + done);
    const __m256i b = load32Block(src + done + 32);
    store32Block(dst + done, a);
    store32Block(dst + done + 32, b);
  }
  owniCopySmallRow(src + done, dst + done, length - done);
}

// Rest of a streamed row after its 64-byte blocks: by 32, 16, 8, 4, 2 and 1 bytes.
void copyTailByHalves(const Ipp8u* src, Ipp8u* dst, size_t length) {
  size_t done = 0;
  if (length & 32) {
    store32Block(dst, load32Block(src));
    done += 32;
  }
  done = copyBlocks16To4(src, dst, length, done);
  if (length & 2) {
    store16(dst + done, load16(src + done));
    done += 2;
  }
  if (length & 1) dst[done] = src[done];
}

void streamingRowE9(const Ipp8u* src, Ipp8u* dst, size_t length) {
  const size_t misalignment = addressOf(dst) & 63;
  if (misalignment != 0) {
    store32Block(dst, load32Block(src));
    store32Block(dst + 32, load32Block(src + 32));
    const size_t head = 64 - misalignment;
    src += head;
    dst += head;
    length -= head;
  }
  size_t done = 0;
  for (; done + 64 <= length; done += 64) {
    _mm256_stream_si256(reinterpret_cast<__m256i*>(dst + done), load32Block(src + done));
    _mm256_stream_si256(reinterpret_cast<__m256i*>(dst + done + 32), load32Block(src + done + 32));
  }
  copyTailByHalves(src + done, dst + done, length - done);
}

// owniCopy8u_cn's decision: stream only when twice the total exceeds both 4 MiB and the known
// cache size, and the rows are at least 128 bytes.
bool e9Streams(size_t rowBytes, size_t total) {
  if (2 * total < 4194305) return false;
  int cache = 0;
  if (ippGetMaxCacheSizeB(&cache) != ippStsNoErr) return false;
  if (2 * total <= static_cast<size_t>(cache)) return false;
  return rowBytes >= 128;
}

#endif

}  // namespace

void owniCopySmallRow(const Ipp8u* src, Ipp8u* dst, size_t length) {
  size_t done = 0;
  if (length & 32) {
    const __m128i a = loadBlock(src);
    const __m128i b = loadBlock(src + 16);
    storeBlock(dst, a);
    storeBlock(dst + 16, b);
    done = 32;
  }
  done = copyBlocks16To4(src, dst, length, done);
  for (size_t end = length; end > done; --end) dst[end - 1] = src[end - 1];
}

qv::pixel::CopyPlan owniPlanCopy(int srcStep, int dstStep, size_t rowBytes, int rows) {
  using qv::pixel::CopyRoad;
  const size_t total = rowBytes * static_cast<size_t>(rows);
  const long row = static_cast<long>(rowBytes);
  qv::pixel::CopyPlan plan{rowBytes, rows, CopyRoad::kCached};
  if (row == srcStep && row == dstStep) plan = {total, 1, CopyRoad::kCached};
#if QV_TIER_LEVEL == 2 || QV_TIER_LEVEL == 3
  plan.road = roadOf8uas(plan.rowBytes, total);
#elif QV_TIER_LEVEL == 1
  // No cache lookup in this tier: the flag is set above 1 MiB, and short rows ignore it.
  if (plan.rowBytes < 64)
    plan.road = CopyRoad::kSmall;
  else if (total > kStreamingStart)
    plan.road = CopyRoad::kStreaming;
#else
  if (plan.rowBytes < 64)
    plan.road = CopyRoad::kSmall;
  else if (plan.rowBytes >= 0x400 && e9Streams(plan.rowBytes, total))
    plan.road = CopyRoad::kStreaming;
#endif
  return plan;
}

void owniCopyImage(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, size_t rowBytes, int rows) {
  using qv::pixel::CopyRoad;
  const qv::pixel::CopyPlan plan = owniPlanCopy(srcStep, dstStep, rowBytes, rows);
#if QV_TIER_LEVEL == 2 || QV_TIER_LEVEL == 3
  void (*copyRow)(const Ipp8u*, Ipp8u*, size_t) = cachedRow;
  if (plan.road == CopyRoad::kSmall) copyRow = owniCopySmallRow;
  if (plan.road == CopyRoad::kStreaming) copyRow = streamingRow;
  for (int r = 0; r < plan.rows; ++r) copyRow(rowAt(src, srcStep, r), rowAt(dst, dstStep, r), plan.rowBytes);
#elif QV_TIER_LEVEL == 1
  const bool streaming = plan.road == CopyRoad::kStreaming;
  for (int r = 0; r < plan.rows; ++r)
    owniCopy_8u_C1_M7(rowAt(src, srcStep, r), rowAt(dst, dstStep, r), plan.rowBytes, streaming);
  return;  // each streamed row is fenced by its kernel
#else
  void (*copyRow)(const Ipp8u*, Ipp8u*, size_t) = plan.road == CopyRoad::kStreaming ? streamingRowE9 : owniCopy8u_E9;
  for (int r = 0; r < plan.rows; ++r) copyRow(rowAt(src, srcStep, r), rowAt(dst, dstStep, r), plan.rowBytes);
#endif
  if (plan.road == CopyRoad::kStreaming) _mm_sfence();
}

}  // namespace QV_TIER
