// CompressLZSS, DecompressLZSS and the LZSS operations of QVILCompression.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "codec/leak_allowance.h"
#include "codec/lzss_reference.h"
#include "qvimage/QVILCompression.h"
#include "qvimage/QVILTypes.h"
#include "qvimage/ippcore.h"
#include "qvimage/ipps_lzss.h"

namespace {

using codectest::Bytes;

std::string capturedStdout() {
  fflush(stdout);
  return testing::internal::GetCapturedStdout();
}

int countOf(const std::string& text, const std::string& piece) {
  int count = 0;
  for (size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++count;
  return count;
}

void* refuseMemory(size_t) { return nullptr; }

// Replaces the allocator behind ippsMalloc_8u for the life of the object.
class NoMemory {
 public:
  NoMemory() : saved_(i_malloc) { i_malloc = refuseMemory; }
  ~NoMemory() { i_malloc = saved_; }

 private:
  void* (*saved_)(size_t);
};

Bytes compressed(const Bytes& data) {
  Bytes stream(data.size() + data.size() / 8 + 16);
  int length = static_cast<int>(stream.size());
  EXPECT_EQ(CompressLZSS(const_cast<Ipp8u*>(data.data()), static_cast<int>(data.size()), stream.data(), &length), 0);
  stream.resize(static_cast<size_t>(length));
  return stream;
}

TEST(CompressLZSS, WritesAStreamTheReferenceReadsAndItsSize) {
  const Bytes data = codectest::textLikeBytes(200000, 51);
  testing::internal::CaptureStdout();
  const Bytes stream = compressed(data);
  EXPECT_EQ(capturedStdout(), "");
  EXPECT_LT(stream.size(), data.size() / 2);
  EXPECT_TRUE(codectest::lzssReferenceDecode(stream) == data);
}

TEST(CompressLZSS, EmptySourceGivesSizeZero) {
  Ipp8u source[1] = {0};
  Ipp8u out[4];
  int length = 4;
  EXPECT_EQ(CompressLZSS(source, 0, out, &length), 0);
  EXPECT_EQ(length, 0);
}

// Capacity too small: 33, quietly, and the size is not written.
TEST(CompressLZSS, TooSmallAnswersDstSizeLessExpected) {
  const Bytes data = codectest::randomBytes(1000, 52);
  Bytes out(1000);
  int length = 1000;
  testing::internal::CaptureStdout();
  EXPECT_EQ(CompressLZSS(const_cast<Ipp8u*>(data.data()), 1000, out.data(), &length), ippStsDstSizeLessExpected);
  EXPECT_EQ(capturedStdout(), "");
  EXPECT_EQ(length, 1000);
}

TEST(CompressLZSS, NoMemoryForTheStateIsReported) {
  const Bytes data = codectest::randomBytes(100, 53);
  Bytes out(200);
  int length = 200;
  testing::internal::CaptureStdout();
  {
    NoMemory refused;
    EXPECT_EQ(CompressLZSS(const_cast<Ipp8u*>(data.data()), 100, out.data(), &length), ippStsMemAllocErr);
  }
  EXPECT_EQ(capturedStdout(), "Error while encode lz77.exiting...");
  EXPECT_EQ(length, 200);
}

// A failed encode other than a full output is reported and returned; the state stays allocated.
TEST(CompressLZSS, FailedEncodeIsReportedAndKeepsItsState) {
  codectest::LeakAllowance stateIsKept;
  Bytes out(200);
  int length = 200;
  testing::internal::CaptureStdout();
  EXPECT_EQ(CompressLZSS(nullptr, 100, out.data(), &length), ippStsNullPtrErr);
  EXPECT_EQ(capturedStdout(), "Error while encode lz77.exiting...");
  EXPECT_EQ(length, 200);
}

TEST(DecompressLZSS, RestoresTheDataAndWritesItsSize) {
  const Bytes data = codectest::textLikeBytes(3 << 20, 54);  // several budgets of 1 MiB
  const Bytes stream = compressed(data);
  Bytes out(data.size());
  int length = 7;  // written, never read as a limit
  testing::internal::CaptureStdout();
  EXPECT_EQ(DecompressLZSS(const_cast<Ipp8u*>(stream.data()), static_cast<int>(stream.size()), out.data(), &length), 0);
  EXPECT_EQ(capturedStdout(), "");
  EXPECT_EQ(length, static_cast<int>(data.size()));
  EXPECT_TRUE(out == data);
}

// Whatever the fill bits at the end (0 to 7 of them), the decoder ends cleanly with 0 and the
// exact length.
TEST(DecompressLZSS, EndsCleanlyOnEveryFill) {
  const Bytes random = codectest::randomBytes(64, 55);
  for (size_t size = 1; size <= 64; ++size) {
    const Bytes data(random.begin(), random.begin() + static_cast<long>(size));
    const Bytes stream = compressed(data);
    Bytes out(size + 16);
    int length = 0;
    EXPECT_EQ(DecompressLZSS(const_cast<Ipp8u*>(stream.data()), static_cast<int>(stream.size()), out.data(), &length),
              0);
    EXPECT_EQ(length, static_cast<int>(size));
    EXPECT_TRUE(Bytes(out.begin(), out.begin() + static_cast<long>(size)) == data);
  }
}

TEST(DecompressLZSS, NoMemoryForTheStateIsReported) {
  Ipp8u stream[2] = {0xA0, 0x80};
  Ipp8u out[4];
  int length = 4;
  testing::internal::CaptureStdout();
  {
    NoMemory refused;
    EXPECT_EQ(DecompressLZSS(stream, 2, out, &length), ippStsMemAllocErr);
  }
  EXPECT_EQ(capturedStdout(), "Error while initalloc 4 decode lz77.exiting...");
  EXPECT_EQ(length, 4);
}

TEST(DecompressLZSS, FailedDecodeIsReportedAndKeepsItsState) {
  codectest::LeakAllowance stateIsKept;
  Ipp8u out[4];
  int length = 4;
  testing::internal::CaptureStdout();
  EXPECT_EQ(DecompressLZSS(nullptr, 2, out, &length), ippStsNullPtrErr);
  EXPECT_EQ(capturedStdout(), "Error -8 while decode lz77.exiting...\n");
  EXPECT_EQ(length, 4);
}

// Random bytes grow, so the first buffer (as long as the source) is too small; the next one,
// 1 MiB longer, takes the stream.
TEST(QVILCompressionLzss, RandomSourceNeedsTheSecondTry) {
  const Bytes data = codectest::randomBytes(100000, 56);
  Bytes firstTry(data.size());
  int firstLength = static_cast<int>(data.size());
  ASSERT_EQ(CompressLZSS(const_cast<Ipp8u*>(data.data()), 100000, firstTry.data(), &firstLength),
            ippStsDstSizeLessExpected);
  uint64_t length = 0;
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressLZSS(data.data(), data.size(), &length);
  ASSERT_NE(stream, nullptr);
  EXPECT_GT(length, data.size());
  EXPECT_LE(length, data.size() + data.size() / 8 + 1);
  const Bytes bytes(stream, stream + length);
  EXPECT_TRUE(codectest::lzssReferenceDecode(bytes) == data);
  Bytes out(data.size());
  EXPECT_EQ(QVILCompression::sharedInstance()->intelDecompressLZSS(stream, length, out.data(),
                                                                   static_cast<int32_t>(out.size())),
            static_cast<int32_t>(data.size()));
  EXPECT_TRUE(out == data);
  free(stream);
}

TEST(QVILCompressionLzss, CompressibleSourceFitsTheFirstTry) {
  const Bytes data = codectest::textLikeBytes(100000, 57);
  uint64_t length = 0;
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressLZSS(data.data(), data.size(), &length);
  EXPECT_TRUE(Bytes(stream, stream + length) == compressed(data));
  free(stream);
  stream = QVILCompression::sharedInstance()->intelCompressLZSS(data.data(), data.size(), nullptr);
  EXPECT_NE(stream, nullptr);
  free(stream);
}

// Only the low 32 bits of the source length count.
TEST(QVILCompressionLzss, SourceLengthUsesItsLow32Bits) {
  const Bytes data = codectest::textLikeBytes(5000, 58);
  uint64_t length = 0;
  uint8_t* stream = QVILCompression::sharedInstance()->intelCompressLZSS(data.data(), (1ull << 32) + 5000, &length);
  EXPECT_TRUE(Bytes(stream, stream + length) == compressed(data));
  free(stream);
}

std::string lastAssertion;
int assertionCount = 0;
void recordAssertion(const char* description) {
  lastAssertion = description;
  ++assertionCount;
}

// Every try fails (the source is null): after fifty, the assertion handler is told, with the
// buffer length of the fiftieth try (49 MiB over the source); once it returns, a fifty-first try
// runs, and its buffer comes back with the capacity it had.
TEST(QVILCompressionLzss, AssertionAfterFiftyTries) {
  codectest::LeakAllowance statesAreKept;
  QVILSetAssertionHandler(recordAssertion);
  assertionCount = 0;
  uint64_t length = 0;
  testing::internal::CaptureStdout();
  uint8_t* buffer = QVILCompression::sharedInstance()->intelCompressLZSS(nullptr, 10, &length);
  const std::string printed = capturedStdout();
  QVILSetAssertionHandler(nullptr);
  EXPECT_EQ(assertionCount, 1);
  EXPECT_NE(lastAssertion.find("QVILCompression intelCompressLZSS:sourceLength:destinationLength:"), std::string::npos)
      << lastAssertion;
  EXPECT_NE(lastAssertion.find("QVILCompression:252"), std::string::npos) << lastAssertion;
  const std::string expectedText =
      "Failed to save block with source length:10 buffer length:" + std::to_string(10 + 49 * 1048576);
  EXPECT_EQ(lastAssertion.substr(lastAssertion.size() - expectedText.size()), expectedText);
  EXPECT_EQ(countOf(printed, "Error while encode lz77.exiting..."), 51);
  EXPECT_EQ(length, 10u + 50u * 1048576u);
  free(buffer);
}

}  // namespace
