// LZSS streams: what the library writes is read by a decoder written from the format alone, and
// the library reads streams written by another valid encoder; in one call and in many.

#include <gtest/gtest.h>

#include "codec/lzss_driver.h"
#include "codec/lzss_reference.h"
#include "qvimage/ipps_lzss.h"
#include "support/tiers.h"

namespace {

using codectest::Bytes;

struct Corpus {
  const char* name;
  Bytes data;
};

std::vector<Corpus> corpora() {
  return {{"random", codectest::randomBytes(300000, 31)},
          {"text", codectest::textLikeBytes(1 << 20, 32)},
          {"runs", codectest::runHeavyBytes(1 << 20, 33)}};
}

TEST(LzssStream, ReferenceDecoderReadsOneCallStreams) {
  for (const Corpus& corpus : corpora()) {
    SCOPED_TRACE(corpus.name);
    const Bytes stream = codectest::lzssEncode(corpus.data);
    EXPECT_TRUE(codectest::lzssReferenceDecode(stream) == corpus.data);
    EXPECT_LE(stream.size(), corpus.data.size() + corpus.data.size() / 8 + 1);
  }
}

TEST(LzssStream, ReferenceDecoderReadsAFourMegabyteStream) {
  Bytes data = codectest::textLikeBytes(3 << 20, 34);
  const Bytes noise = codectest::randomBytes(1 << 20, 35);
  data.insert(data.begin() + (1 << 20), noise.begin(), noise.end());
  const Bytes stream = codectest::lzssEncode(data);
  EXPECT_TRUE(codectest::lzssReferenceDecode(stream) == data);
  EXPECT_TRUE(codectest::lzssDecode(stream, 1 << 20, data.size()) == data);
}

// Source pieces of many sizes: the window upkeep runs both of its moves (a call of 32768 bytes
// or more, and the write position passing the end of the window), and matches reach back into
// the history of earlier calls.
TEST(LzssStream, ReferenceDecoderReadsStreamsWrittenInManyCalls) {
  const std::vector<std::vector<int>> pieceSets = {{1}, {2, 3, 1}, {1000}, {257, 258, 259}, {40000, 7}, {32768, 5000}};
  for (const Corpus& corpus : corpora()) {
    const Bytes front(corpus.data.begin(), corpus.data.begin() + 200000);
    for (const std::vector<int>& pieces : pieceSets) {
      SCOPED_TRACE(std::string(corpus.name) + ", pieces from " + std::to_string(pieces[0]));
      if (pieces[0] < 4 && corpus.name != std::string("text")) continue;  // keep the suite short
      const Bytes data = pieces[0] < 4 ? Bytes(front.begin(), front.begin() + 20000) : front;
      const Bytes stream = codectest::lzssEncode(data, pieces);
      EXPECT_TRUE(codectest::lzssReferenceDecode(stream) == data);
    }
  }
}

// Stopping at a full output and resuming continues the same tokens: the bytes are those of one
// call.
// Calls of 1000 bytes: matches must reach back past the start of their call, through the window.
TEST(LzssStream, MatchesReachIntoTheHistoryOfEarlierCalls) {
  const Bytes data = codectest::textLikeBytes(300000, 36);
  const Bytes stream = codectest::lzssEncode(data, {1000});
  ASSERT_TRUE(codectest::lzssReferenceDecode(stream) == data);
  size_t intoEarlierCalls = 0;
  for (const codectest::LzssToken& token : codectest::lzssTokens(stream))
    if (!token.literal && token.distance > token.outputAt % 1000) ++intoEarlierCalls;
  EXPECT_GT(intoEarlierCalls, 1000u);
}

// A random block repeated 32767 bytes later: once its first bytes are seen, the repeat is
// matches of exactly that distance, the farthest the format allows; one past it, nothing but the
// odd chance match of three or four bytes.
TEST(LzssStream, MatchesReachTheFarthestDistance) {
  for (int pieces : {1000, 1 << 20}) {
    for (size_t distance : {32767u, 32768u}) {
      SCOPED_TRACE("pieces " + std::to_string(pieces) + ", distance " + std::to_string(distance));
      Bytes data = codectest::randomBytes(distance, 37);
      const Bytes block(data.begin(), data.begin() + 5000);
      data.insert(data.end(), block.begin(), block.end());
      const Bytes stream = codectest::lzssEncode(data, {pieces});
      ASSERT_TRUE(codectest::lzssReferenceDecode(stream) == data);
      size_t matchedBytes = 0;
      for (const codectest::LzssToken& token : codectest::lzssTokens(stream))
        if (!token.literal && token.outputAt >= distance) {
          if (distance == 32767u) {
            EXPECT_EQ(token.distance, 32767u);
          }
          matchedBytes += token.length;
        }
      EXPECT_EQ(matchedBytes > 4000, distance == 32767u);
    }
  }
}

TEST(LzssStream, SmallOutputBudgetsWriteTheSameBytesAsOneCall) {
  for (const Corpus& corpus : corpora()) {
    SCOPED_TRACE(corpus.name);
    const Bytes data(corpus.data.begin(), corpus.data.begin() + 100000);
    const Bytes whole = codectest::lzssEncode(data);
    for (int budget : {1, 2, 3, 7, 100})
      EXPECT_TRUE(codectest::lzssEncode(data, {}, budget) == whole) << "budget " << budget;
    EXPECT_TRUE(codectest::lzssEncode(data, {5000}, 3) == codectest::lzssEncode(data, {5000}));
  }
}

TEST(LzssStream, LibraryDecodesAnotherEncodersStreams) {
  for (const Corpus& corpus : corpora()) {
    SCOPED_TRACE(corpus.name);
    const Bytes data(corpus.data.begin(), corpus.data.begin() + 120000);
    const Bytes stream = codectest::lzssOtherEncode(data);
    ASSERT_TRUE(codectest::lzssReferenceDecode(stream) == data);
    for (int budget : {1, 2, 5, 257, 258, 259, 40000, 1 << 20})
      EXPECT_TRUE(codectest::lzssDecode(stream, budget, data.size()) == data) << "budget " << budget;
  }
}

bool hasDistanceZero(const Bytes& stream) {
  for (const codectest::LzssToken& token : codectest::lzssTokens(stream))
    if (!token.literal && token.distance == 0) return true;
  return false;
}

// Every bit pattern is a stream: random bytes decode as the reference reads them, distances
// beyond the history included (zeros), whatever the budget. Distance 0 names no earlier byte, so
// streams holding one are passed over.
TEST(LzssStream, RandomBitsDecodeAsTheReferenceReadsThem) {
  int streams = 0;
  for (uint32_t seed = 0; streams < 4; ++seed) {
    const Bytes stream = codectest::randomBytes(3000, 90 + seed);
    if (hasDistanceZero(stream)) continue;
    ++streams;
    const Bytes expected = codectest::lzssReferenceDecode(stream);
    for (int budget : {1, 300, 1 << 20})
      EXPECT_TRUE(codectest::lzssDecode(stream, budget, expected.size()) == expected)
          << "seed " << seed << ", budget " << budget;
  }
}

TEST(LzssStream, TiersWriteAndReadTheSameBytes) {
  const std::vector<Corpus> all = corpora();
  qvtest::expectSameOnEveryTier([&] {
    Bytes written;
    for (const Corpus& corpus : all) {
      const Bytes data(corpus.data.begin(), corpus.data.begin() + 150000);
      const Bytes stream = codectest::lzssEncode(data, {70000});
      EXPECT_TRUE(codectest::lzssDecode(stream, 3000, data.size()) == data);
      written.insert(written.end(), stream.begin(), stream.end());
    }
    return written;
  });
}

}  // namespace
