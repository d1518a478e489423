// CRC-32, folding form with carry-less multiplication (tiers y8 and e9).
//
// The data goes through 16-byte lanes. A lane X, read as the message it holds, is carried
// forward over d bits of later data by multiplying its low and high halves with the pair for d
// (x^(d+32) and x^(d-32) modulo the polynomial, in the reflected form), which gives a lane of
// the same remainder d bits further on. Four lanes move 64 bytes a round; then the lanes are
// folded into one and reduced to a 64-bit value of the same remainder, which the byte-wise table
// turns into the register; the last bytes follow through the table.
//
// Only aligned loads touch the source. The start is aligned by masking: the first aligned block
// is read whole and the bytes ahead of the source are cleared, which leaves the remainder as it
// is, since leading zero bytes do not move a register that starts at zero.

#include "primitives/common/tier_util.h"
#include "primitives/data/checksum/checksum_kernels.h"
#include "primitives/data/checksum/crc_tables.h"

#if QV_TIER_LEVEL >= 3

#define QV_PCLMUL __attribute__((target("pclmul")))
#define QV_PCLMUL_INLINE inline __attribute__((always_inline, target("pclmul")))

namespace QV_TIER {
namespace {

// The folding pairs, low element first.
struct FoldPair {
  Ipp64u low;
  Ipp64u high;
};
constexpr FoldPair kFold512{0x154442BD4, 0x1C6E41596};
constexpr FoldPair kFold256{0xF1DA05AA, 0x15A546366};
constexpr FoldPair kFold128{0x1751997D0, 0xCCAA009E};
constexpr FoldPair kReduce64{0xCCAA009E, 0x163CD6124};

// 32 zero bytes, then 16 bytes of ones: the 16 bytes from offset 32 - m clear the first m bytes.
// clang-format off
alignas(16) constexpr Ipp8u kStartMask[48] = {
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
// clang-format on

QV_INLINE __m128i pairOf(FoldPair pair) {
  return _mm_set_epi64x(static_cast<long long>(pair.high), static_cast<long long>(pair.low));
}

// The lane carried forward by the distance of the pair.
QV_PCLMUL_INLINE __m128i fold(__m128i lane, __m128i pair) {
  return _mm_xor_si128(_mm_clmulepi64_si128(lane, pair, 0x00), _mm_clmulepi64_si128(lane, pair, 0x11));
}

// The lane carried forward over 8 bytes: its first 8 bytes are multiplied onto the rest. The
// result stands for the lane followed by 8 zero bytes, so the next 8 data bytes are added at its
// bytes 8 to 15.
QV_PCLMUL_INLINE __m128i foldForward64(__m128i lane, __m128i pair) {
  return _mm_xor_si128(_mm_clmulepi64_si128(lane, pair, 0x00), _mm_srli_si128(lane, 8));
}

// A lane reduced to a 64-bit value S of the same remainder: S mod P is the register after the
// lane's 16 bytes. The lane is carried forward over 8 bytes, then its first 4 bytes onto the
// next 8.
QV_PCLMUL_INLINE Ipp64u reduceTo64(__m128i lane, __m128i pair) {
  const __m128i low32 = _mm_setr_epi32(-1, 0, 0, 0);
  lane = foldForward64(lane, pair);
  lane = _mm_xor_si128(_mm_clmulepi64_si128(_mm_and_si128(lane, low32), pair, 0x10), _mm_srli_si128(lane, 4));
  return static_cast<Ipp64u>(_mm_cvtsi128_si64(lane));
}

// The register of a 64-bit value S: its first 4 bytes through the byte-wise table from an
// empty register, its last 4 bytes added as they are.
QV_INLINE Ipp32u registerOf(Ipp64u state) {
  Ipp32u crc = 0;
  for (int i = 0; i < 4; ++i) crc = crcByte(crc, static_cast<Ipp8u>(state >> (8 * i)));
  return crc ^ static_cast<Ipp32u>(state >> 32);
}

// The aligned block that holds the first source byte. It begins up to 15 bytes before the source,
// in the same 16-byte block and so on the same page; those bytes are masked off by the caller and
// never count. AddressSanitizer would report them when the caller's buffer starts unaligned, so
// this one load is left out of its checks.
__attribute__((noinline, no_sanitize_address)) __m128i loadFirstBlock(const Ipp8u* alignedStart) {
  return loadAlignedBlock(alignedStart);
}

// The bytes that remain, through the byte-wise table: two a round, then a last one.
QV_INLINE Ipp32u crcTail(Ipp32u crc, const Ipp8u* src, int len) {
  for (; len >= 2; src += 2, len -= 2) {
    crc = crcByte(crc, src[0]);
    crc = crcByte(crc, src[1]);
  }
  if (len == 1) crc = crcByte(crc, *src);
  return crc;
}

}  // namespace

QV_PCLMUL Ipp32u owns_zlib_reduction_crc_proc(const Ipp8u* src, int len, Ipp32u crc) {
  crc = ~crc;
  const int m = static_cast<int>(addressOf(src) & 15);
  if (len < 32 - m) return ~crcTail(crc, src, len);

  // The start: two aligned blocks, the bytes ahead of the source cleared, the inverted value
  // laid on the first data byte.
  const Ipp8u* aligned = src - m;
  alignas(16) Ipp8u startValue[32] = {};
  store32(startValue + m, crc);
  const __m128i mask = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kStartMask + 32 - m));
  __m128i lane0 = _mm_xor_si128(_mm_and_si128(loadFirstBlock(aligned), mask), loadAlignedBlock(startValue));
  __m128i lane1 = _mm_xor_si128(loadAlignedBlock(aligned + 16), loadAlignedBlock(startValue + 16));
  const Ipp8u* next = aligned + 32;
  len -= 32 - m;

  if (len >= 32) {
    __m128i lane2 = loadAlignedBlock(next);
    __m128i lane3 = loadAlignedBlock(next + 16);
    next += 32;
    len -= 32;
    const __m128i pair512 = pairOf(kFold512);
    for (; len >= 64; next += 64, len -= 64) {
      lane0 = _mm_xor_si128(fold(lane0, pair512), loadAlignedBlock(next));
      lane1 = _mm_xor_si128(fold(lane1, pair512), loadAlignedBlock(next + 16));
      lane2 = _mm_xor_si128(fold(lane2, pair512), loadAlignedBlock(next + 32));
      lane3 = _mm_xor_si128(fold(lane3, pair512), loadAlignedBlock(next + 48));
    }
    const __m128i pair256 = pairOf(kFold256);
    lane0 = _mm_xor_si128(fold(lane0, pair256), lane2);
    lane1 = _mm_xor_si128(fold(lane1, pair256), lane3);
  }
  if (len >= 32) {
    const __m128i pair256 = pairOf(kFold256);
    lane0 = _mm_xor_si128(fold(lane0, pair256), loadAlignedBlock(next));
    lane1 = _mm_xor_si128(fold(lane1, pair256), loadAlignedBlock(next + 16));
    next += 32;
    len -= 32;
  }

  const __m128i pair128 = pairOf(kFold128);
  __m128i lane = _mm_xor_si128(fold(lane0, pair128), lane1);
  if (len >= 16) {
    lane = _mm_xor_si128(fold(lane, pair128), loadAlignedBlock(next));
    next += 16;
    len -= 16;
  }

  const __m128i pair64 = pairOf(kReduce64);
  if (len >= 8) {
    const __m128i eightBytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(next));
    lane = _mm_xor_si128(foldForward64(lane, pair64), _mm_slli_si128(eightBytes, 8));
    next += 8;
    len -= 8;
  }
  crc = registerOf(reduceTo64(lane, pair64));
  return ~crcTail(crc, next, len);
}

}  // namespace QV_TIER

#endif
