// The LZSS primitives: sizes, statuses in the order of their checks, and the edges of encoding
// and decoding.

#include <gtest/gtest.h>

#include <cstring>

#include "codec/lzss_driver.h"
#include "codec/lzss_reference.h"
#include "qvimage/ippcore.h"
#include "qvimage/ipps_lzss.h"
#include "support/tiers.h"

// The family's primitives that exist only inside the tiers.
#define QV_TEST_LZSS_TIER_ONLY(tier)                        \
  namespace tier {                                          \
  IppStatus ippsLZSSGetSize_8u(int* pLZSSStateSize);        \
  IppStatus ippsEncodeLZSSInit_8u(IppLZSSState_8u* pState); \
  IppStatus ippsDecodeLZSSInit_8u(IppLZSSState_8u* pState); \
  }
QV_TEST_LZSS_TIER_ONLY(m7)
QV_TEST_LZSS_TIER_ONLY(u8)
QV_TEST_LZSS_TIER_ONLY(y8)
QV_TEST_LZSS_TIER_ONLY(e9)

namespace {

using codectest::Bytes;
using codectest::LzssBitStream;

constexpr Ipp8u kUntouched = 0xA5;

struct EncoderState {
  EncoderState() { EXPECT_EQ(ippsEncodeLZSSInitAlloc_8u(&state), ippStsNoErr); }
  ~EncoderState() { ippsLZSSFree_8u(state); }
  IppLZSSState_8u* state = nullptr;
};

struct DecoderState {
  DecoderState() { EXPECT_EQ(ippsDecodeLZSSInitAlloc_8u(&state), ippStsNoErr); }
  ~DecoderState() { ippsLZSSFree_8u(state); }
  IppLZSSState_8u* state = nullptr;
};

TEST(LzssState, SizeIs327744OnEveryTierAndNullIsRefused) {
  using GetSize = IppStatus (*)(int*);
  for (GetSize getSize :
       {m7::ippsLZSSGetSize_8u, u8::ippsLZSSGetSize_8u, y8::ippsLZSSGetSize_8u, e9::ippsLZSSGetSize_8u}) {
    int size = 0;
    EXPECT_EQ(getSize(&size), ippStsNoErr);
    EXPECT_EQ(size, 327744);
    EXPECT_EQ(getSize(nullptr), ippStsNullPtrErr);
  }
}

TEST(LzssState, InitOnACallersBlockAndNullIsRefused) {
  std::vector<uint8_t> block(327744 + 64);
  auto* state =
      reinterpret_cast<IppLZSSState_8u*>(block.data() + (64 - reinterpret_cast<uintptr_t>(block.data()) % 64) % 64);
  EXPECT_EQ(m7::ippsEncodeLZSSInit_8u(nullptr), ippStsNullPtrErr);
  EXPECT_EQ(m7::ippsDecodeLZSSInit_8u(nullptr), ippStsNullPtrErr);
  EXPECT_EQ(e9::ippsEncodeLZSSInit_8u(state), ippStsNoErr);
  const Bytes data = codectest::textLikeBytes(5000, 41);
  Bytes stream(6000);
  Ipp8u* src = const_cast<Ipp8u*>(data.data());
  Ipp8u* dst = stream.data();
  int srcLeft = 5000;
  int dstLeft = 6000;
  EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, state), ippStsNoErr);
  EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &dstLeft, state), ippStsNoErr);
  stream.resize(static_cast<size_t>(dst - stream.data()));
  EXPECT_TRUE(codectest::lzssReferenceDecode(stream) == data);
  EXPECT_EQ(u8::ippsDecodeLZSSInit_8u(state), ippStsNoErr);
  Bytes out(5000);
  src = stream.data();
  srcLeft = static_cast<int>(stream.size());
  dst = out.data();
  dstLeft = 5000;
  EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, state), ippStsDstSizeLessExpected);
  EXPECT_TRUE(out == data);
}

void* refuseMemory(size_t) { return nullptr; }

TEST(LzssState, InitAllocStatuses) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    EXPECT_EQ(ippsEncodeLZSSInitAlloc_8u(nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippsDecodeLZSSInitAlloc_8u(nullptr), ippStsNullPtrErr);
    auto* untouched = reinterpret_cast<IppLZSSState_8u*>(0x1234);
    IppLZSSState_8u* state = untouched;
    void* (*savedMalloc)(size_t) = i_malloc;
    i_malloc = refuseMemory;
    EXPECT_EQ(ippsEncodeLZSSInitAlloc_8u(&state), ippStsMemAllocErr);
    EXPECT_EQ(ippsDecodeLZSSInitAlloc_8u(&state), ippStsMemAllocErr);
    i_malloc = savedMalloc;
    EXPECT_EQ(state, untouched);
    EXPECT_EQ(ippsEncodeLZSSInitAlloc_8u(&state), ippStsNoErr);
    EXPECT_NE(state, untouched);
    EXPECT_EQ(ippsLZSSFree_8u(state), ippStsNoErr);
  });
}

// --- encoder ---

TEST(LzssEncode, NullPointersAreRefusedAndNothingMoves) {
  EncoderState encoder;
  Ipp8u source[4] = {1, 2, 3, 4};
  Ipp8u out[8];
  memset(out, kUntouched, sizeof out);
  Ipp8u* src = source;
  Ipp8u* dst = out;
  int srcLeft = 4;
  int dstLeft = 8;
  Ipp8u* nullBytes = nullptr;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_EQ(ippsEncodeLZSS_8u(nullptr, &srcLeft, &dst, &dstLeft, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, nullptr, &dst, &dstLeft, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, nullptr, &dstLeft, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, nullptr, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSS_8u(&nullBytes, &srcLeft, &dst, &dstLeft, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &nullBytes, &dstLeft, encoder.state), ippStsNullPtrErr);
    // Null pointers come before the capacity.
    int none = 0;
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &none, nullptr), ippStsNullPtrErr);
  });
  EXPECT_EQ(src, source);
  EXPECT_EQ(dst, out);
  EXPECT_EQ(srcLeft, 4);
  EXPECT_EQ(dstLeft, 8);
  for (Ipp8u b : out) EXPECT_EQ(b, kUntouched);
}

// A capacity of 0 answers 33 whatever the source, before an empty source answers 0.
TEST(LzssEncode, CapacityZeroAnswersDstSizeLessExpectedFirst) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EncoderState encoder;
    Ipp8u source[4] = {1, 2, 3, 4};
    Ipp8u out[4];
    memset(out, kUntouched, sizeof out);
    for (int srcLength : {4, 0}) {
      Ipp8u* src = source;
      Ipp8u* dst = out;
      int srcLeft = srcLength;
      int dstLeft = 0;
      EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, encoder.state), ippStsDstSizeLessExpected);
      EXPECT_EQ(src, source);
      EXPECT_EQ(srcLeft, srcLength);
      EXPECT_EQ(dst, out);
    }
    for (Ipp8u b : out) EXPECT_EQ(b, kUntouched);
  });
}

TEST(LzssEncode, EmptySourceGivesAnEmptyStream) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EncoderState encoder;
    Ipp8u source[1] = {9};
    Ipp8u out[4];
    memset(out, kUntouched, sizeof out);
    Ipp8u* src = source;
    Ipp8u* dst = out;
    int srcLeft = 0;
    int dstLeft = 4;
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, encoder.state), ippStsNoErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &dstLeft, encoder.state), ippStsNoErr);
    EXPECT_EQ(dst, out);
    EXPECT_EQ(dstLeft, 4);
    for (Ipp8u b : out) EXPECT_EQ(b, kUntouched);
  });
}

// One byte is 9 bits in 2 bytes, two bytes 18 bits in 3 bytes, all literals.
TEST(LzssEncode, OneOrTwoBytesAreLiterals) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    LzssBitStream one;
    one.literal('A');
    EXPECT_TRUE(codectest::lzssEncode(Bytes{'A'}) == one.bytes());
    EXPECT_EQ(one.bytes().size(), 2u);
    LzssBitStream two;
    two.literal('A');
    two.literal('A');
    EXPECT_TRUE(codectest::lzssEncode(Bytes{'A', 'A'}) == two.bytes());
    EXPECT_EQ(two.bytes().size(), 3u);
  });
}

// Position 0 has no candidate: a literal, then matches of distance 1 from position 1, 258 long
// while the limit allows; the last two bytes are literals.
TEST(LzssEncode, ThousandEqualBytes) {
  const Bytes data(1000, 'z');
  LzssBitStream expected;
  expected.literal('z');
  size_t p = 1;
  while (p < 998) {
    const size_t length = std::min<size_t>(258, 998 - p);
    expected.match(1, static_cast<uint32_t>(length));
    p += length;
  }
  expected.literal('z');
  expected.literal('z');
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    const Bytes stream = codectest::lzssEncode(data);
    EXPECT_TRUE(stream == expected.bytes());
    const std::vector<codectest::LzssToken> tokens = codectest::lzssTokens(stream);
    ASSERT_GE(tokens.size(), 2u);
    EXPECT_TRUE(tokens[0].literal);
    EXPECT_FALSE(tokens[1].literal);
    EXPECT_EQ(tokens[1].outputAt, 1u);
    EXPECT_EQ(tokens[1].distance, 1u);
    EXPECT_EQ(tokens[1].length, 258u);
  });
}

// At the third "abc" two candidates match 3 bytes: the nearer one (distance 4) is taken.
TEST(LzssEncode, NearestOfEqualMatchesWins) {
  const std::string text = "abcXabcYabcZqq";
  const Bytes data(text.begin(), text.end());
  LzssBitStream expected;
  for (char c : std::string("abcX")) expected.literal(static_cast<uint8_t>(c));
  expected.match(4, 3);
  expected.literal('Y');
  expected.match(4, 3);
  expected.literal('Z');
  expected.literal('q');
  expected.literal('q');
  qvtest::onEveryTier([&](const qvtest::Tier&) { EXPECT_TRUE(codectest::lzssEncode(data) == expected.bytes()); });
}

// "abcdefgh", then `fillers` times "abc" and a distinct byte, then "abcdefgh!!". The long match
// is the oldest candidate: found when it is the 16th of the chain, missed when it is the 17th.
Bytes chainData(int fillers) {
  Bytes data{'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'};
  for (int k = 0; k < fillers; ++k) data.insert(data.end(), {'a', 'b', 'c', static_cast<uint8_t>('A' + k)});
  data.insert(data.end(), {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h', '!', '!'});
  return data;
}

// The token that begins at an output position.
codectest::LzssToken tokenAt(const Bytes& stream, size_t position) {
  for (const codectest::LzssToken& token : codectest::lzssTokens(stream))
    if (token.outputAt == position) return token;
  return {};
}

TEST(LzssEncode, ChainsExamineSixteenCandidates) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    const Bytes within = chainData(15);
    const codectest::LzssToken reached = tokenAt(codectest::lzssEncode(within), 8 + 4 * 15);
    EXPECT_FALSE(reached.literal);
    EXPECT_EQ(reached.distance, 8u + 4 * 15);
    EXPECT_EQ(reached.length, 8u);
    const Bytes beyond = chainData(16);
    const codectest::LzssToken missed = tokenAt(codectest::lzssEncode(beyond), 8 + 4 * 16);
    EXPECT_FALSE(missed.literal);
    EXPECT_EQ(missed.distance, 4u);
    EXPECT_EQ(missed.length, 3u);
  });
}

// Each call's last two bytes are literals and stay out of the chains.
TEST(LzssEncode, CallsEndInTwoLiterals) {
  const Bytes data(40, 'q');
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    const Bytes stream = codectest::lzssEncode(data, {10});
    const std::vector<codectest::LzssToken> tokens = codectest::lzssTokens(stream);
    for (size_t end : {10u, 20u, 30u, 40u}) {
      size_t literalsBefore = 0;
      for (const codectest::LzssToken& token : tokens)
        if (token.literal && (token.outputAt == end - 1 || token.outputAt == end - 2)) ++literalsBefore;
      EXPECT_EQ(literalsBefore, 2u) << "call ending at " << end;
    }
    EXPECT_TRUE(codectest::lzssReferenceDecode(stream) == data);
  });
}

// A full output stops after the token that filled it; the rest of its bits wait in the state.
TEST(LzssEncode, FullOutputStopsAndResumes) {
  const Bytes data = codectest::textLikeBytes(2000, 42);
  const Bytes whole = codectest::lzssEncode(data);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EncoderState encoder;
    Bytes out(whole.size() + 8, kUntouched);
    Ipp8u* src = const_cast<Ipp8u*>(data.data());
    int srcLeft = 2000;
    Ipp8u* dst = out.data();
    int dstLeft = 5;
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, encoder.state), ippStsDstSizeLessExpected);
    EXPECT_EQ(dst, out.data() + 5);
    EXPECT_EQ(dstLeft, 0);
    EXPECT_GT(srcLeft, 0);
    EXPECT_EQ(src, data.data() + (2000 - srcLeft));
    EXPECT_EQ(out[5], kUntouched);
    dstLeft = static_cast<int>(out.size()) - 5;
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, encoder.state), ippStsNoErr);
    EXPECT_EQ(srcLeft, 0);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &dstLeft, encoder.state), ippStsNoErr);
    out.resize(static_cast<size_t>(dst - out.data()));
    EXPECT_TRUE(out == whole);
  });
}

// --- flush ---

TEST(LzssFlush, StatusesInOrder) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EncoderState encoder;
    Ipp8u out[4];
    memset(out, kUntouched, sizeof out);
    Ipp8u* dst = out;
    Ipp8u* nullBytes = nullptr;
    int dstLeft = 4;
    int none = 0;
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(nullptr, &dstLeft, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, nullptr, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &dstLeft, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&nullBytes, &dstLeft, encoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &none, nullptr), ippStsNullPtrErr);
    // A capacity below 1 is refused even with nothing to flush.
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &none, encoder.state), ippStsSizeErr);
    none = -3;
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &none, encoder.state), ippStsSizeErr);
    EXPECT_EQ(dst, out);
    for (Ipp8u b : out) EXPECT_EQ(b, kUntouched);
  });
}

// Six equal bytes with one output byte a call: a literal (9 bits, 1 byte out), then the match
// of distance 1 and length 3 (24 bits more, 1 byte out, 17 bits left). With one byte of room
// the flush writes one byte and answers 33; the next flush writes the remaining two.
TEST(LzssFlush, PartialFlushKeepsTheRemainder) {
  LzssBitStream expected;
  expected.literal('a');
  expected.match(1, 3);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EncoderState encoder;
    Bytes source(6, 'a');
    Bytes out(8, kUntouched);
    Ipp8u* src = source.data();
    int srcLeft = 6;
    Ipp8u* dst = out.data();
    for (int call = 0; call < 2; ++call) {
      int oneByte = 1;
      EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &oneByte, encoder.state), ippStsDstSizeLessExpected);
    }
    EXPECT_EQ(srcLeft, 2);
    EXPECT_EQ(dst, out.data() + 2);
    int oneByte = 1;
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &oneByte, encoder.state), ippStsDstSizeLessExpected);
    EXPECT_EQ(oneByte, 0);
    EXPECT_EQ(dst, out.data() + 3);
    EXPECT_EQ(out[3], kUntouched);
    int rest = 5;
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &rest, encoder.state), ippStsNoErr);
    EXPECT_EQ(rest, 3);
    out.resize(static_cast<size_t>(dst - out.data()));
    EXPECT_TRUE(out == expected.bytes());
  });
}

// After a complete flush the bit count stays: a second flush writes the same last bytes again.
TEST(LzssFlush, CompleteFlushLeavesTheStateAsItWas) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EncoderState encoder;
    Bytes source{'q'};
    Ipp8u* src = source.data();
    int srcLeft = 1;
    Bytes out(8, kUntouched);
    Ipp8u* dst = out.data();
    int dstLeft = 8;
    EXPECT_EQ(ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, encoder.state), ippStsNoErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &dstLeft, encoder.state), ippStsNoErr);
    EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &dstLeft, encoder.state), ippStsNoErr);
    EXPECT_EQ(dst, out.data() + 3);
    EXPECT_EQ(out[2], out[1]);  // 'q' = 0x71: 1 0111000 | 1 then fill: the byte 0x80 twice
    EXPECT_EQ(out[1], 0x80);
  });
}

// --- decoder ---

TEST(LzssDecode, StatusesInOrder) {
  DecoderState decoder;
  Ipp8u stream[4] = {0xA0, 0x80, 0, 0};
  Ipp8u out[4];
  memset(out, kUntouched, sizeof out);
  Ipp8u* src = stream;
  Ipp8u* dst = out;
  Ipp8u* nullBytes = nullptr;
  int srcLeft = 2;
  int dstLeft = 4;
  int none = 0;
  int negative = -1;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_EQ(ippsDecodeLZSS_8u(nullptr, &srcLeft, &dst, &dstLeft, decoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, nullptr, &dst, &dstLeft, decoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, nullptr, &dstLeft, decoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, nullptr, decoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&nullBytes, &srcLeft, &dst, &dstLeft, decoder.state), ippStsNullPtrErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &nullBytes, &dstLeft, decoder.state), ippStsNullPtrErr);
    // The capacity is tested before the state.
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &none, nullptr), ippStsSizeErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &negative, decoder.state), ippStsSizeErr);
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, nullptr), ippStsNullPtrErr);
  });
  EXPECT_EQ(src, stream);
  EXPECT_EQ(dst, out);
  EXPECT_EQ(srcLeft, 2);
  EXPECT_EQ(dstLeft, 4);
  for (Ipp8u b : out) EXPECT_EQ(b, kUntouched);
}

// 0 when the input bits run out, 33 when the output is full, with the counts moved.
TEST(LzssDecode, EndsOnInputOrOnAFullOutput) {
  LzssBitStream stream;
  for (uint8_t b : {'a', 'b', 'c', 'd'}) stream.literal(b);
  const Bytes bytes = stream.bytes();  // 36 bits in 5 bytes
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    {
      DecoderState decoder;
      Ipp8u out[8];
      Ipp8u* src = const_cast<Ipp8u*>(bytes.data());
      Ipp8u* dst = out;
      int srcLeft = 5;
      int dstLeft = 8;
      EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, decoder.state), ippStsNoErr);
      EXPECT_EQ(srcLeft, 0);
      EXPECT_EQ(dstLeft, 4);
      EXPECT_EQ(memcmp(out, "abcd", 4), 0);
    }
    {
      DecoderState decoder;
      Ipp8u out[8];
      memset(out, kUntouched, sizeof out);
      Ipp8u* src = const_cast<Ipp8u*>(bytes.data());
      Ipp8u* dst = out;
      int srcLeft = 5;
      int dstLeft = 2;
      EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, decoder.state), ippStsDstSizeLessExpected);
      EXPECT_EQ(dstLeft, 0);
      EXPECT_EQ(dst, out + 2);
      EXPECT_EQ(out[2], kUntouched);
      dstLeft = 6;
      EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, decoder.state), ippStsNoErr);
      EXPECT_EQ(dst, out + 4);
      EXPECT_EQ(memcmp(out, "abcd", 4), 0);
    }
  });
}

// A match longer than the budget is written in part and resumed by the next call, which
// returns 33 again while the budget runs out inside it.
TEST(LzssDecode, MatchLongerThanTheBudgetResumes) {
  LzssBitStream stream;
  stream.literal('k');
  stream.literal('m');
  stream.match(2, 200);
  stream.literal('!');
  const Bytes bytes = stream.bytes();
  Bytes expected{'k', 'm'};
  for (int i = 0; i < 100; ++i) expected.insert(expected.end(), {'k', 'm'});
  expected.push_back('!');
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    DecoderState decoder;
    Bytes out(expected.size(), kUntouched);
    Ipp8u* src = const_cast<Ipp8u*>(bytes.data());
    int srcLeft = static_cast<int>(bytes.size());
    Ipp8u* dst = out.data();
    int budget = 50;
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &budget, decoder.state), ippStsDstSizeLessExpected);
    EXPECT_EQ(dst, out.data() + 50);
    budget = 100;  // still inside the match: 33 again
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &budget, decoder.state), ippStsDstSizeLessExpected);
    EXPECT_EQ(dst, out.data() + 150);
    budget = 100;
    EXPECT_EQ(ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &budget, decoder.state), ippStsNoErr);
    EXPECT_EQ(dst, out.data() + expected.size());
    EXPECT_TRUE(out == expected);
  });
}

// A distance beyond everything decoded reads the window, all zero at the start.
TEST(LzssDecode, DistanceBeyondTheHistoryReadsZeros) {
  LzssBitStream stream;
  stream.literal('w');
  stream.match(300, 5);
  const Bytes bytes = stream.bytes();
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_TRUE(codectest::lzssDecode(bytes, 100, 6) == (Bytes{'w', 0, 0, 0, 0, 0}));
  });
}

}  // namespace
