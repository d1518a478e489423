// The public frame: the controller and its row-alignment hook, the shared facts, log lines,
// and the first-use order of the shared instances.

#include <gtest/gtest.h>

#include <unistd.h>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "qvimage/QVILConversion.h"
#include "qvimage/QVILLibraryController.h"
#include "qvimage/QVILSharedInternal.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"
#include "support/images.h"
#include "support/log_capture.h"

namespace {

uint64_t customAlignment(uint64_t rowBytes) { return rowBytes * 2; }

TEST(LibraryController, DefaultAlignmentRoundsUpTo64) {
  QVILAllignRowBytesFunction align = QVILLibraryController::sharedInstance()->allignRowBytesFunction();
  ASSERT_NE(align, nullptr);
  EXPECT_EQ(align(0), 0u);
  EXPECT_EQ(align(1), 64u);
  EXPECT_EQ(align(64), 64u);
  EXPECT_EQ(align(65), 128u);
  EXPECT_EQ(align(4 * 1001), 4032u);
}

TEST(LibraryController, SharedInstanceIsOneAndKeepsACallersHook) {
  QVILLibraryController* controller = QVILLibraryController::sharedInstance();
  const QVILAllignRowBytesFunction original = controller->allignRowBytesFunction();
  controller->setAllignRowBytesFunction(customAlignment);
  EXPECT_EQ(QVILLibraryController::sharedInstance(), controller);
  EXPECT_EQ(QVILLibraryController::sharedInstance()->allignRowBytesFunction(), customAlignment);
  QVILConversion::sharedInstance();  // another class's first use does not reinstall the default
  EXPECT_EQ(controller->allignRowBytesFunction(), customAlignment);
  controller->setAllignRowBytesFunction(nullptr);  // stored without validation
  EXPECT_EQ(controller->allignRowBytesFunction(), nullptr);
  controller->setAllignRowBytesFunction(original);
}

TEST(SharedInternal, Facts) {
  EXPECT_EQ(QVILSharedInternal::numberOfChannelsPerPixel(), 4u);
  EXPECT_EQ(QVILSharedInternal::minimalDimensionsToUseMultithreading(), 500);
  EXPECT_EQ(QVILSharedInternal::bitmapInfoForBitsPerChannel(16), 0x1001u);
  for (uint32_t bits : {8u, 32u, 0u, 15u, 17u})
    EXPECT_EQ(QVILSharedInternal::bitmapInfoForBitsPerChannel(bits), 0x2002u);
  EXPECT_TRUE(QVILSharedInternal::isMavericksOrLater());
}

TEST(SharedInternal, ProcessorCountsOfThisMachine) {
  const uint32_t logical = QVILSharedInternal::numberOfAvailableLogicalCPUs();
  const uint32_t physical = QVILSharedInternal::numberOfAvailablePhysicalCPUs();
  EXPECT_GE(logical, 1u);
  EXPECT_GE(physical, 1u);
  EXPECT_LE(physical, logical);
}

TEST(Frame, UnsupportedDepthIsLoggedAndRefused) {
  qvtest::TestImage source(8, 4, 4);
  qvtest::TestImage destination(8, 4, 4);
  source.fillRandom(5);
  const std::vector<uint8_t> before = destination.allBytes();
  const std::vector<uint8_t> sourceBefore = source.allBytes();
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  qvtest::LogCapture log;
  EXPECT_FALSE(QVILConversion::sharedInstance()->imageLibCopyRGBA(&from, &to, 1, 12));
  ASSERT_EQ(log.lines().size(), 1u);
  EXPECT_EQ(log.lines()[0],
            "Error: -[QVILConversion imageLibCopyRGBA:dest:multithreadOptions:bitsPerChannel:] unsupported bits per "
            "chanel: 12");
  EXPECT_EQ(destination.allBytes(), before);
  EXPECT_EQ(source.allBytes(), sourceBefore);
}

TEST(Frame, NullDestinationIsDroppedAndAnswersYes) {
  qvtest::TestImage source(8, 4, 4);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to{nullptr, 4, 8, 32};
  qvtest::LogCapture log;
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibCopyRGBA8888(&from, &to));
  EXPECT_TRUE(log.lines().empty());
}

TEST(Frame, RegionTakesTheLow32BitsOfTheFields) {
  qvtest::TestImage source(3, 2, 4);
  qvtest::TestImage destination(3, 2, 4);
  source.fillRandom(9);
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  to.width += 1ull << 32;  // cut silently to 3
  to.height += 1ull << 32;
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibCopyRGBA8888(&from, &to));
  EXPECT_EQ(destination.pixels(), source.pixels());
  EXPECT_TRUE(destination.surroundingsIntact());
}

TEST(LogHandler, DefaultSinkWritesAPrefixedLineToStandardError) {
  testing::internal::CaptureStderr();
  qvtest::TestImage image(2, 2, 4);
  vImage_Buffer buffer = image.buffer();
  QVILConversion::sharedInstance()->imageLibCopyRGBA(&buffer, &buffer, 0, 3);
  const std::string line = testing::internal::GetCapturedStderr();
  // "YYYY-MM-DD HH:MM:SS.mmm program[pid:tid] message"
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, millis = 0, pid = 0, tid = 0, consumed = 0;
  char program[256] = {};
  const int fields = std::sscanf(line.c_str(), "%4d-%2d-%2d %2d:%2d:%2d.%3d %255[^[][%d:%d] %n", &year, &month, &day,
                                 &hour, &minute, &second, &millis, program, &pid, &tid, &consumed);
  ASSERT_EQ(fields, 10) << line;
  EXPECT_EQ(line.compare(static_cast<size_t>(consumed), 7, "Error: "), 0) << line;
  EXPECT_EQ(pid, static_cast<int>(getpid()));
  EXPECT_GE(month, 1);
  EXPECT_LE(month, 12);
  EXPECT_EQ(line.substr(19, 1), ".");
  EXPECT_NE(line.find("unsupported bits per chanel: 3\n"), std::string::npos) << line;
}

// A fresh process, before any shared instance: primitives run on the lowest tier.
TEST(FrameDeathTest, PrimitivesWorkBeforeAnySharedInstance) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const bool lowest = ippJumpIndexForMergedLibs == 0 && ippGetEnabledCpuFeatures() == 7;
        Ipp8u src[64];
        Ipp8u dst[64];
        for (int i = 0; i < 64; ++i) src[i] = static_cast<Ipp8u>(i * 7);
        IppiSize size;
        size.width = 4;
        size.height = 4;
        const IppStatus status = ippiCopy_8u_C4R(src, 16, dst, 16, size);
        const bool copied = status == ippStsNoErr && std::memcmp(src, dst, sizeof src) == 0;
        std::exit(lowest && copied ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST(FrameDeathTest, FirstSharedInstanceSelectsTheTierOnce) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const bool before = ippJumpIndexForMergedLibs == 0;
        QVILConversion::sharedInstance();
        const int slot = ippJumpIndexForMergedLibs;
        ippInitCpu(0x00);  // a later shared instance does not select again
        QVILLibraryController::sharedInstance();
        QVILConversion::sharedInstance();
        std::exit(before && slot != 0 && ippJumpIndexForMergedLibs == 1 ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
