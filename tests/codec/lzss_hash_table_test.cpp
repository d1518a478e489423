// lzssHashTable: the words the format's tables are known by, and its mixing.

#include <gtest/gtest.h>

#include <set>

// The table header is a tier header; read it here in a namespace of the test's own.
#define QV_TIER lzss_table_test
#define QV_TIER_LEVEL 1
#include "primitives/data/lzss/lzss_hash_table.h"

namespace {

using lzss_table_test::lzssHashTable;

TEST(LzssHashTable, OpensWithTheKnownWordsAndPeaksAt32764) {
  EXPECT_EQ(lzssHashTable[0], 18845);
  EXPECT_EQ(lzssHashTable[1], 15810);
  EXPECT_EQ(lzssHashTable[2], 11527);
  EXPECT_EQ(lzssHashTable[3], 28763);
  unsigned greatest = 0;
  for (unsigned word : lzssHashTable) greatest = word > greatest ? word : greatest;
  EXPECT_EQ(greatest, 32764u);
}

// Each row nearly free of repeats, and every bit of the 15 set in about half the words.
TEST(LzssHashTable, RowsAreWellMixed) {
  for (int row = 0; row < 3; ++row) {
    std::set<unsigned> distinct(lzssHashTable + 256 * row, lzssHashTable + 256 * (row + 1));
    EXPECT_GE(distinct.size(), 250u) << "row " << row;
  }
  for (int bit = 0; bit < 15; ++bit) {
    int set = 0;
    for (unsigned word : lzssHashTable) set += (word >> bit) & 1;
    EXPECT_GT(set, 768 * 4 / 10) << "bit " << bit;
    EXPECT_LT(set, 768 * 6 / 10) << "bit " << bit;
  }
}

// Three-byte strings spread over the hash values: 65536 strings with a varying first and second
// byte reach most of the 32768 values.
TEST(LzssHashTable, HashesSpreadOverFifteenBits) {
  std::set<unsigned> values;
  for (int a = 0; a < 256; ++a)
    for (int b = 0; b < 256; ++b) {
      const Ipp8u bytes[3] = {static_cast<Ipp8u>(a), static_cast<Ipp8u>(b), 'e'};
      const unsigned h = lzss_table_test::lzssHash(bytes);
      EXPECT_LT(h, 32768u);
      values.insert(h);
    }
  EXPECT_GT(values.size(), 32768u * 8 / 10);
}

}  // namespace
