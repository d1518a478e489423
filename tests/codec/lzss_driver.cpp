#include "codec/lzss_driver.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "qvimage/ipps_lzss.h"

namespace codectest {

Bytes lzssEncode(const Bytes& data, const std::vector<int>& pieceSizes, int outputBudget) {
  IppLZSSState_8u* state = nullptr;
  EXPECT_EQ(ippsEncodeLZSSInitAlloc_8u(&state), ippStsNoErr);
  Bytes stream(data.size() + data.size() / 8 + 64);
  Ipp8u* dst = stream.data();
  size_t taken = 0;
  size_t piece = 0;
  while (taken < data.size()) {
    const int size = pieceSizes.empty() ? static_cast<int>(data.size()) : pieceSizes[piece++ % pieceSizes.size()];
    int srcLeft = static_cast<int>(std::min<size_t>(static_cast<size_t>(size), data.size() - taken));
    Ipp8u* src = const_cast<Ipp8u*>(data.data()) + taken;
    const Ipp8u* callStart = src;
    for (;;) {
      const int room = static_cast<int>(stream.data() + stream.size() - dst);
      int budget = std::min(outputBudget, room);
      const IppStatus status = ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &budget, state);
      if (status == ippStsNoErr) break;
      EXPECT_EQ(status, ippStsDstSizeLessExpected);
      if (status != ippStsDstSizeLessExpected) break;
    }
    EXPECT_EQ(srcLeft, 0);
    taken += static_cast<size_t>(src - callStart);
  }
  int room = static_cast<int>(stream.data() + stream.size() - dst);
  EXPECT_EQ(ippsEncodeLZSSFlush_8u(&dst, &room, state), ippStsNoErr);
  stream.resize(static_cast<size_t>(dst - stream.data()));
  EXPECT_EQ(ippsLZSSFree_8u(state), ippStsNoErr);
  return stream;
}

Bytes lzssDecode(const Bytes& stream, int budget, size_t expectedSize) {
  IppLZSSState_8u* state = nullptr;
  EXPECT_EQ(ippsDecodeLZSSInitAlloc_8u(&state), ippStsNoErr);
  Bytes out(expectedSize + 1);
  Ipp8u none = 0;
  Ipp8u* src = stream.empty() ? &none : const_cast<Ipp8u*>(stream.data());
  int srcLeft = static_cast<int>(stream.size());
  Ipp8u* dst = out.data();
  for (;;) {
    const int room = static_cast<int>(out.data() + out.size() - dst);
    int callBudget = std::min(budget, room);
    const IppStatus status = ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &callBudget, state);
    if (status == ippStsNoErr) break;
    EXPECT_EQ(status, ippStsDstSizeLessExpected);
    if (status != ippStsDstSizeLessExpected || dst == out.data() + out.size()) break;
  }
  EXPECT_EQ(srcLeft, 0);
  out.resize(static_cast<size_t>(dst - out.data()));
  EXPECT_EQ(ippsLZSSFree_8u(state), ippStsNoErr);
  return out;
}

}  // namespace codectest
