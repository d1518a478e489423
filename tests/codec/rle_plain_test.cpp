// EncodeRLE, DecodeRLE and the run-length operations of QVILCompression.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "codec/rle_reference.h"
#include "qvimage/QVILCompression.h"
#include "qvimage/ipps_rle.h"
#include "support/log_capture.h"

namespace {

using codectest::Bytes;

std::string capturedStdout() {
  fflush(stdout);
  return testing::internal::GetCapturedStdout();
}

std::string capturedStderr() {
  fflush(stderr);
  return testing::internal::GetCapturedStderr();
}

TEST(EncodeRLE, NullSourceOrDestination) {
  Ipp8u byte = 1;
  int srcLen = 1;
  int dstLen = 1;
  EXPECT_EQ(EncodeRLE(nullptr, &srcLen, &byte, &dstLen), ippStsNullPtrErr);
  EXPECT_EQ(EncodeRLE(&byte, &srcLen, nullptr, &dstLen), ippStsNullPtrErr);
  EXPECT_EQ(srcLen, 1);
  EXPECT_EQ(dstLen, 1);
}

TEST(EncodeRLE, EncodesAndMovesTheCounts) {
  const Bytes data = codectest::runHeavyBytes(5000, 71);
  Bytes copy = data;
  Bytes out(6000);
  int srcLen = 5000;
  int dstLen = 6000;
  EXPECT_EQ(EncodeRLE(copy.data(), &srcLen, out.data(), &dstLen), 0);
  EXPECT_EQ(srcLen, 0);
  const Bytes expected = codectest::rleReferenceEncode(data, 6000).out;
  EXPECT_EQ(dstLen, static_cast<int>(expected.size()));
  EXPECT_TRUE(Bytes(out.begin(), out.begin() + dstLen) == expected);
}

// A full output comes back as 0, quietly, with the source count showing what is left.
TEST(EncodeRLE, FullOutputAnswersZero) {
  Bytes pairs;
  for (int k = 0; k < 50; ++k) pairs.insert(pairs.end(), 2, static_cast<uint8_t>(k));
  Bytes out(100);
  int srcLen = 100;
  int dstLen = 100;
  testing::internal::CaptureStdout();
  EXPECT_EQ(EncodeRLE(pairs.data(), &srcLen, out.data(), &dstLen), 0);
  EXPECT_EQ(capturedStdout(), "");
  EXPECT_GT(srcLen, 0);
  EXPECT_EQ(dstLen, 100);
}

TEST(EncodeRLE, OtherFailuresArePrintedAndAnswerZero) {
  Ipp8u byte = 1;
  int srcLen = 0;
  int dstLen = 5;
  testing::internal::CaptureStdout();
  EXPECT_EQ(EncodeRLE(&byte, &srcLen, &byte, &dstLen), 0);
  EXPECT_EQ(capturedStdout(), "Error <-6> while trying RLE encoding\n");
  EXPECT_EQ(dstLen, 5);
  testing::internal::CaptureStdout();
  EXPECT_EQ(EncodeRLE(&byte, nullptr, &byte, &dstLen), 0);
  EXPECT_EQ(capturedStdout(), "Error <-8> while trying RLE encoding\n");
}

TEST(DecodeRLE, NullSourceOrDestination) {
  Ipp8u byte = 1;
  int dstLen = 1;
  EXPECT_EQ(DecodeRLE(nullptr, 1, &byte, &dstLen), ippStsNullPtrErr);
  EXPECT_EQ(DecodeRLE(&byte, 1, nullptr, &dstLen), ippStsNullPtrErr);
  EXPECT_EQ(dstLen, 1);
}

TEST(DecodeRLE, CompleteAndCutAnswerZero) {
  Bytes stream{'a', 'a', 5, 'b'};
  Bytes out(10);
  int dstLen = 10;
  EXPECT_EQ(DecodeRLE(stream.data(), 4, out.data(), &dstLen), 0);
  EXPECT_EQ(dstLen, 8);
  EXPECT_TRUE(Bytes(out.begin(), out.begin() + 8) == (Bytes{'a', 'a', 'a', 'a', 'a', 'a', 'a', 'b'}));
  dstLen = 3;  // the run does not fit: 33 from the primitive, 0 here
  testing::internal::CaptureStderr();
  EXPECT_EQ(DecodeRLE(stream.data(), 4, out.data(), &dstLen), 0);
  EXPECT_EQ(capturedStderr(), "");
  EXPECT_EQ(dstLen, 0);
}

TEST(DecodeRLE, FailuresArePrintedOnStandardErrorAndReturned) {
  Ipp8u byte = 1;
  int dstLen = 0;
  testing::internal::CaptureStderr();
  EXPECT_EQ(DecodeRLE(&byte, 1, &byte, &dstLen), ippStsSizeErr);
  EXPECT_EQ(capturedStderr(), "Error <-6> while trying RLE decoding. Exiting.\n");
  dstLen = 1;
  testing::internal::CaptureStderr();
  EXPECT_EQ(DecodeRLE(&byte, 0, &byte, &dstLen), ippStsSizeErr);
  EXPECT_EQ(capturedStderr(), "Error <-6> while trying RLE decoding. Exiting.\n");
}

TEST(QVILCompressionRle, CompressesAndDecompresses) {
  const Bytes data = codectest::runHeavyBytes(100000, 72);
  qvtest::LogCapture log;
  uint64_t length = 0;
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressRLE(data.data(), data.size(), &length);
  const Bytes expected = codectest::rleReferenceEncode(data, 1 << 20).out;
  ASSERT_EQ(length, expected.size());
  EXPECT_TRUE(Bytes(stream, stream + length) == expected);
  Bytes out(data.size());
  EXPECT_EQ(QVILCompression::sharedInstance()->intelDecompressRLE(stream, length, out.data(),
                                                                  static_cast<int32_t>(out.size())),
            static_cast<int32_t>(data.size()));
  EXPECT_TRUE(out == data);
  EXPECT_TRUE(log.lines().empty());
  free(stream);
  stream = QVILCompression::sharedInstance()->intelCompressRLE(data.data(), data.size(), nullptr);
  EXPECT_NE(stream, nullptr);
  free(stream);
}

// Pairs grow by half: the stream is cut, silently, at the source's length, and decoding it
// gives only the front of the source.
TEST(QVILCompressionRle, ExpandingSourceIsCutAtItsLength) {
  Bytes pairs;
  for (int k = 0; k < 1000; ++k) pairs.insert(pairs.end(), 2, static_cast<uint8_t>(k % 7 * 3 + k % 2));
  qvtest::LogCapture log;
  uint64_t length = 0;
  testing::internal::CaptureStdout();
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressRLE(pairs.data(), pairs.size(), &length);
  EXPECT_EQ(capturedStdout(), "");
  EXPECT_TRUE(log.lines().empty());
  ASSERT_EQ(length, pairs.size());
  const Bytes expected = codectest::rleReferenceEncode(pairs, pairs.size()).out;
  EXPECT_TRUE(Bytes(stream, stream + length) == expected);
  Bytes out(pairs.size());
  const int32_t decoded = QVILCompression::sharedInstance()->intelDecompressRLE(stream, length, out.data(),
                                                                                static_cast<int32_t>(out.size()));
  EXPECT_LT(decoded, static_cast<int32_t>(pairs.size()));
  EXPECT_GT(decoded, 0);
  EXPECT_TRUE(Bytes(out.begin(), out.begin() + decoded) == Bytes(pairs.begin(), pairs.begin() + decoded));
  free(stream);
}

// Length 0: the capacity stays 0, the primitive refuses the empty source, the message is
// printed, and the length is 0.
TEST(QVILCompressionRle, EmptySource) {
  Ipp8u byte = 1;
  uint64_t length = 99;
  testing::internal::CaptureStdout();
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressRLE(&byte, 0, &length);
  EXPECT_EQ(capturedStdout(), "Error <-6> while trying RLE encoding\n");
  EXPECT_EQ(length, 0u);
  free(stream);
}

}  // namespace
