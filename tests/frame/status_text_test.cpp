// Status texts: every named code begins with its name, the quoted texts stand word for word, and
// unknown codes read as ippStsUnknownStatusCodeErr.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "qvimage/ippcore.h"

namespace {

struct NamedStatus {
  const char* name;
  int code;
};

const NamedStatus kNamed[] = {
#define QV_TEST_ROW(name, code, sentence) {#name, code},
    QV_STATUS_ROWS(QV_TEST_ROW)
#undef QV_TEST_ROW
};

TEST(StatusText, NoError) { EXPECT_STREQ(ippGetStatusString(0), "ippStsNoErr: No errors."); }

TEST(StatusText, QuotedTextsWordForWord) {
  EXPECT_STREQ(ippGetStatusString(-4), "ippStsNoMemErr: Not enough memory for the operation.");
  EXPECT_STREQ(ippGetStatusString(-5), "ippStsBadArgErr: Incorrect arg/param of the function.");
  EXPECT_STREQ(ippGetStatusString(-6), "ippStsSizeErr: Incorrect value for data size.");
  EXPECT_STREQ(ippGetStatusString(-8), "ippStsNullPtrErr: Null pointer error.");
  EXPECT_STREQ(ippGetStatusString(-13), "ippStsScaleRangeErr: Scale bounds are out of range.");
  EXPECT_STREQ(ippGetStatusString(-14), "ippStsStepErr: Step value is not valid.");
  EXPECT_STREQ(ippGetStatusString(-22), "ippStsInterpolationErr: Invalid interpolation mode.");
  EXPECT_STREQ(ippGetStatusString(-50), "ippStsAlphaTypeErr: Illegal type of image compositing operation.");
  EXPECT_STREQ(ippGetStatusString(-60), "ippStsChannelOrderErr: Incorrect order of the destination channels.");
  EXPECT_STREQ(ippGetStatusString(-216), "ippStsUnknownStatusCodeErr: Unknown status code.");
  EXPECT_STREQ(ippGetStatusString(20), "ippStsNonIntelCpu: The target CPU is not Genuine Intel.");
  EXPECT_STREQ(ippGetStatusString(21), "ippStsCpuMismatch: Cannot set the library for the given CPU.");
  EXPECT_STREQ(ippGetStatusString(36), "ippStsNotSupportedCpu: The CPU is not supported.");
  EXPECT_STREQ(ippGetStatusString(37),
               "ippStsUnknownCacheSize: The CPU is supported, but the size of the cache is unknown.");
}

TEST(StatusText, RowsWithoutAName) {
  EXPECT_STREQ(ippGetStatusString(-9702), "No shared libraries were found in the Waterfall procedure");
  EXPECT_STREQ(ippGetStatusString(-9701), "No DLLs were found in the Waterfall procedure");
  EXPECT_STREQ(ippGetStatusString(-9700), "Error at loading of %s library");
}

TEST(StatusText, UnknownCodesReadAsUnknownStatus) {
  const char* unknown = "ippStsUnknownStatusCodeErr: Unknown status code.";
  for (int code : {9999, -165, -68, -84, -85, -86, -87, -88, -89, 49, -228, -9703, -10000})
    EXPECT_STREQ(ippGetStatusString(code), unknown) << code;
}

TEST(StatusText, EveryNamedRowBeginsWithItsNameColonAndBlank) {
  for (const NamedStatus& row : kNamed) {
    const std::string prefix = std::string(row.name) + ": ";
    const std::string text = ippGetStatusString(row.code);
    EXPECT_EQ(text.compare(0, prefix.size(), prefix), 0) << text;
    EXPECT_GT(text.size(), prefix.size()) << text;
  }
}

TEST(StatusText, TableHas273RowsSortedAndUnique) {
  std::set<int> codes;
  int previous = -100000;
  for (const NamedStatus& row : kNamed) {
    EXPECT_GT(row.code, previous) << row.name;
    previous = row.code;
    codes.insert(row.code);
  }
  codes.insert({-9702, -9701, -9700});
  EXPECT_EQ(codes.size(), 273u);
  EXPECT_EQ(*codes.begin(), -9999);
  EXPECT_EQ(*codes.rbegin(), 48);
  // Inside -227 to 48 exactly these codes have no row.
  for (int code = -227; code <= 48; ++code) {
    const bool missing = code == -165 || (code >= -89 && code <= -84) || code == -68;
    EXPECT_EQ(codes.count(code) == 0, missing) << code;
  }
}

TEST(StatusText, CodesThePrimitivesLeanOn) {
  EXPECT_EQ(ippStsNoErr, 0);
  EXPECT_EQ(ippStsSizeErr, -6);
  EXPECT_EQ(ippStsNullPtrErr, -8);
  EXPECT_EQ(ippStsStepErr, -14);
  EXPECT_EQ(ippStsChannelOrderErr, -60);
  EXPECT_EQ(ippStsNotSupportedModeErr, -9999);
  EXPECT_EQ(ippStsSizeWrn, 48);
}

}  // namespace
