// ippsEncodeRLE_8u and ippsDecodeRLE_8u against the plain byte algorithms, their statuses and
// edges.

#include <gtest/gtest.h>

#include <cstring>

#include "codec/rle_reference.h"
#include "qvimage/ipps_rle.h"
#include "support/tiers.h"

namespace {

using codectest::Bytes;
using codectest::RleResult;

constexpr Ipp8u kUntouched = 0xA5;
enum class Direction { kEncode, kDecode };

struct Call {
  IppStatus status;
  RleResult result;
};

// One primitive call over the whole source with the given capacity; checks that the pointer and
// counts moved together and that nothing was written past what was reported.
Call run(Direction direction, const Bytes& source, int capacity) {
  Bytes out(static_cast<size_t>(capacity) + 32, kUntouched);
  Bytes copy = source;
  Ipp8u none = 0;
  Ipp8u* src = copy.empty() ? &none : copy.data();
  Ipp8u* const start = src;
  int srcLeft = static_cast<int>(copy.size());
  int dstLen = capacity;
  const IppStatus status = direction == Direction::kEncode ? ippsEncodeRLE_8u(&src, &srcLeft, out.data(), &dstLen)
                                                           : ippsDecodeRLE_8u(&src, &srcLeft, out.data(), &dstLen);
  const auto consumed = static_cast<size_t>(src - start);
  EXPECT_EQ(srcLeft, static_cast<int>(copy.size() - consumed));
  EXPECT_TRUE(copy == source);
  if (status < 0) return {status, {{}, consumed}};
  for (size_t k = static_cast<size_t>(dstLen); k < out.size(); ++k) EXPECT_EQ(out[k], kUntouched) << "byte " << k;
  out.resize(static_cast<size_t>(dstLen));
  return {status, {out, consumed}};
}

void expectLikeReference(Direction direction, const Bytes& source, int capacity) {
  const RleResult expected = direction == Direction::kEncode
                                 ? codectest::rleReferenceEncode(source, static_cast<size_t>(capacity))
                                 : codectest::rleReferenceDecode(source, static_cast<size_t>(capacity));
  const Call call = run(direction, source, capacity);
  EXPECT_EQ(call.status, expected.consumed == source.size() ? ippStsNoErr : ippStsDstSizeLessExpected)
      << "capacity " << capacity;
  EXPECT_EQ(call.result.consumed, expected.consumed) << "capacity " << capacity;
  EXPECT_TRUE(call.result.out == expected.out) << "capacity " << capacity;
}

Bytes runBetween(size_t length, uint8_t value) {
  Bytes data(length + 2, value);
  data.front() = '<';
  data.back() = '>';
  return data;
}

TEST(RleEncode, RunsOfEveryLengthUpTo600) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (size_t length = 1; length <= 600; ++length) {
      const Bytes alone(length, 'r');
      expectLikeReference(Direction::kEncode, alone, 4000);
      const Bytes between = runBetween(length, 'r');
      expectLikeReference(Direction::kEncode, between, 4000);
      const Call call = run(Direction::kEncode, between, 4000);
      const Call back = run(Direction::kDecode, call.result.out, 4000);
      EXPECT_TRUE(back.result.out == between) << "length " << length;
    }
  });
}

Bytes mixedSource() {
  Bytes data = codectest::runHeavyBytes(1500, 61);
  const Bytes random = codectest::randomBytes(300, 62);
  data.insert(data.begin() + 700, random.begin(), random.end());
  data.insert(data.end(), {7, 7, 8, 8, 9, 9, 9});
  return data;
}

TEST(RleEncode, EveryCapacityFromOneUp) {
  const Bytes data = mixedSource();
  const int whole = static_cast<int>(codectest::rleReferenceEncode(data, 1 << 20).out.size());
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (int capacity = 1; capacity <= whole + 3; ++capacity) expectLikeReference(Direction::kEncode, data, capacity);
  });
}

TEST(RleDecode, EveryCapacityFromOneUp) {
  const Bytes data = mixedSource();
  const Bytes stream = codectest::rleReferenceEncode(data, 1 << 20).out;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (int capacity = 1; capacity <= static_cast<int>(data.size()) + 3; ++capacity)
      expectLikeReference(Direction::kDecode, stream, capacity);
    EXPECT_TRUE(run(Direction::kDecode, stream, static_cast<int>(data.size())).result.out == data);
  });
}

// Runs of every count at every output alignment, filled with 16-byte stores from count 17 on,
// give the bytes of the plain loop and nothing beyond.
TEST(RleDecode, LongRunsAtEveryOutputAlignment) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (int lead = 0; lead < 16; ++lead)
      for (int n = 0; n <= 255; n += (n < 40 ? 1 : 7)) {
        Bytes stream;
        for (int k = 0; k < lead; ++k) stream.push_back(static_cast<uint8_t>(k));  // literals
        stream.insert(stream.end(), {0xEE, 0xEE, static_cast<uint8_t>(n), 0x01, 0x02});
        expectLikeReference(Direction::kDecode, stream, 400);
      }
  });
}

TEST(RleDecode, RunIsNeverSplitAndResumesAtAFreshDestination) {
  const Bytes stream{'a', 'b', 'b', 20, 'c'};  // a, 22 b, c
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    Bytes out(40, kUntouched);
    Bytes copy = stream;
    Ipp8u* src = copy.data();
    int srcLeft = 5;
    int dstLen = 10;
    EXPECT_EQ(ippsDecodeRLE_8u(&src, &srcLeft, out.data(), &dstLen), ippStsDstSizeLessExpected);
    EXPECT_EQ(dstLen, 1);
    EXPECT_EQ(srcLeft, 4);
    EXPECT_EQ(out[1], kUntouched);
    dstLen = 22;  // exactly the run
    EXPECT_EQ(ippsDecodeRLE_8u(&src, &srcLeft, out.data() + 1, &dstLen), ippStsDstSizeLessExpected);
    EXPECT_EQ(dstLen, 22);
    EXPECT_EQ(srcLeft, 1);
    dstLen = 5;
    EXPECT_EQ(ippsDecodeRLE_8u(&src, &srcLeft, out.data() + 23, &dstLen), ippStsNoErr);
    EXPECT_EQ(dstLen, 1);
    Bytes expected{'a'};
    expected.insert(expected.end(), 22, 'b');
    expected.push_back('c');
    EXPECT_TRUE(Bytes(out.begin(), out.begin() + 24) == expected);
  });
}

// The encoder stops with source left and a later call goes on at a fresh destination.
TEST(RleEncode, ResumesWithTheSourceLeft) {
  const Bytes data = mixedSource();
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    Bytes copy = data;
    Ipp8u* src = copy.data();
    int srcLeft = static_cast<int>(copy.size());
    Bytes all;
    for (int calls = 0; srcLeft > 0 && calls < 10000; ++calls) {
      Bytes out(100);
      int dstLen = 100;
      const Ipp8u* before = src;
      const IppStatus status = ippsEncodeRLE_8u(&src, &srcLeft, out.data(), &dstLen);
      EXPECT_EQ(status, srcLeft ? ippStsDstSizeLessExpected : ippStsNoErr);
      const Bytes piece(before, before + (src - before));
      EXPECT_TRUE(Bytes(out.begin(), out.begin() + dstLen) == codectest::rleReferenceEncode(piece, 100).out);
      all.insert(all.end(), out.begin(), out.begin() + dstLen);
    }
    EXPECT_EQ(srcLeft, 0);
    EXPECT_GT(all.size(), 0u);
  });
}

TEST(RleEncode, SameBytesOnEveryTier) {
  const Bytes data = codectest::runHeavyBytes(200000, 63);
  qvtest::expectSameOnEveryTier([&] {
    Bytes encoded = run(Direction::kEncode, data, 300000).result.out;
    const Bytes decoded = run(Direction::kDecode, encoded, 200000).result.out;
    EXPECT_TRUE(decoded == data);
    encoded.insert(encoded.end(), decoded.begin(), decoded.end());
    return encoded;
  });
}

// --- edges ---

TEST(RleEdges, OneByte) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_TRUE(run(Direction::kEncode, Bytes{'q'}, 10).result.out == Bytes{'q'});
    const Call decoded = run(Direction::kDecode, Bytes{'q'}, 10);
    EXPECT_EQ(decoded.status, ippStsNoErr);
    EXPECT_TRUE(decoded.result.out == Bytes{'q'});
  });
}

TEST(RleEdges, PairEncodesAsARunOfTwo) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_TRUE(run(Direction::kEncode, Bytes{'a', 'a'}, 10).result.out == (Bytes{'a', 'a', 0}));
    EXPECT_TRUE(run(Direction::kDecode, Bytes{'a', 'a', 0}, 10).result.out == (Bytes{'a', 'a'}));
    // A raw pair at the end, as only the encoder's raw copy writes it, is two literals.
    EXPECT_TRUE(run(Direction::kDecode, Bytes{'a', 'a'}, 10).result.out == (Bytes{'a', 'a'}));
    EXPECT_TRUE(run(Direction::kDecode, Bytes{'x', 'a', 'a'}, 10).result.out == (Bytes{'x', 'a', 'a'}));
    EXPECT_TRUE(run(Direction::kEncode, Bytes{'a', 'a'}, 2).result.out == (Bytes{'a', 'a'}));
  });
}

TEST(RleEdges, WorkedExamples) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_TRUE(run(Direction::kEncode, Bytes{'a', 'b', 'c'}, 10).result.out == (Bytes{'a', 'b', 'c'}));
    EXPECT_TRUE(run(Direction::kEncode, Bytes{'a', 'a', 'b'}, 10).result.out == (Bytes{'a', 'a', 0, 'b'}));
    EXPECT_TRUE(run(Direction::kEncode, Bytes(5, 'a'), 10).result.out == (Bytes{'a', 'a', 3}));
    const Bytes pairs{'a', 'a', 'b', 'b', 'c', 'c', 'd', 'd'};
    EXPECT_EQ(run(Direction::kEncode, pairs, 20).result.out.size(), 12u);  // grows by half
  });
}

TEST(RleEdges, Runs257And258) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_TRUE(run(Direction::kEncode, Bytes(257, 'c'), 10).result.out == (Bytes{'c', 'c', 255}));
    EXPECT_TRUE(run(Direction::kEncode, Bytes(258, 'c'), 10).result.out == (Bytes{'c', 'c', 255, 'c'}));
    EXPECT_TRUE(run(Direction::kDecode, Bytes{'c', 'c', 255, 'c'}, 300).result.out == Bytes(258, 'c'));
  });
}

TEST(RleEdges, CapacityOneOrTwoCopiesRaw) {
  const Bytes data{'z', 'z', 'z', 'z', 'y'};
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    const Call one = run(Direction::kEncode, data, 1);
    EXPECT_EQ(one.status, ippStsDstSizeLessExpected);
    EXPECT_TRUE(one.result.out == Bytes{'z'});
    const Call two = run(Direction::kEncode, data, 2);
    EXPECT_EQ(two.status, ippStsDstSizeLessExpected);
    EXPECT_TRUE(two.result.out == (Bytes{'z', 'z'}));
    EXPECT_EQ(two.result.consumed, 2u);
    const Call three = run(Direction::kEncode, data, 3);
    EXPECT_TRUE(three.result.out == (Bytes{'z', 'z', 2}));
  });
}

// --- statuses, in the order of the checks, nothing written ---

void expectStatusesInOrder(Direction direction) {
  auto call = [direction](Ipp8u** src, int* srcLen, Ipp8u* dst, int* dstLen) {
    return direction == Direction::kEncode ? ippsEncodeRLE_8u(src, srcLen, dst, dstLen)
                                           : ippsDecodeRLE_8u(src, srcLen, dst, dstLen);
  };
  Ipp8u source[3] = {1, 1, 1};
  Ipp8u out[8];
  memset(out, kUntouched, sizeof out);
  Ipp8u* src = source;
  Ipp8u* nullSource = nullptr;
  int srcLen = 3;
  int dstLen = 8;
  int zero = 0;
  int negative = -4;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_EQ(call(nullptr, &srcLen, out, &dstLen), ippStsNullPtrErr);
    EXPECT_EQ(call(&src, nullptr, out, &dstLen), ippStsNullPtrErr);
    EXPECT_EQ(call(&src, &srcLen, nullptr, &dstLen), ippStsNullPtrErr);
    EXPECT_EQ(call(&src, &srcLen, out, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(call(&nullSource, &srcLen, out, &dstLen), ippStsNullPtrErr);
    EXPECT_EQ(call(&nullSource, &zero, out, &zero), ippStsNullPtrErr);  // null before sizes
    EXPECT_EQ(call(&src, &zero, out, &dstLen), ippStsSizeErr);
    EXPECT_EQ(call(&src, &negative, out, &dstLen), ippStsSizeErr);
    EXPECT_EQ(call(&src, &srcLen, out, &zero), ippStsSizeErr);
    EXPECT_EQ(call(&src, &srcLen, out, &negative), ippStsSizeErr);
  });
  EXPECT_EQ(src, source);
  EXPECT_EQ(srcLen, 3);
  EXPECT_EQ(dstLen, 8);
  EXPECT_EQ(zero, 0);
  EXPECT_EQ(negative, -4);
  for (Ipp8u b : out) EXPECT_EQ(b, kUntouched);
}

TEST(RleEncode, StatusesInOrder) { expectStatusesInOrder(Direction::kEncode); }
TEST(RleDecode, StatusesInOrder) { expectStatusesInOrder(Direction::kDecode); }

TEST(RleStatus, CompleteAndCut) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_EQ(run(Direction::kEncode, Bytes{1, 2, 3}, 3).status, ippStsNoErr);
    EXPECT_EQ(run(Direction::kEncode, Bytes{1, 2, 3, 4}, 3).status, ippStsDstSizeLessExpected);
    EXPECT_EQ(run(Direction::kDecode, Bytes{1, 2, 3}, 3).status, ippStsNoErr);
    EXPECT_EQ(run(Direction::kDecode, Bytes{1, 2, 3, 4}, 3).status, ippStsDstSizeLessExpected);
  });
}

}  // namespace
