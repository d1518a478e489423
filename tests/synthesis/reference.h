#ifndef QV_TESTS_SYNTHESIS_REFERENCE_H
#define QV_TESTS_SYNTHESIS_REFERENCE_H

// A deliberately plain and slow re-statement of texture synthesis, written from the rules
// alone, that the tests compare the library with byte for byte: its own containers, full costs
// without early exit, the C library's qsort and rand used directly.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace synthref {

struct Pt {
  int32_t x;
  int32_t y;
  bool operator==(const Pt& o) const { return x == o.x && y == o.y; }
};

// rand() / (0x7fffffff / high + 1), and no draw for a range of 0.
uint32_t drawBelow(uint32_t high);

// The key comparisons of the orders, as qsort comparators.
int cmpLessCartesian(const void* a, const void* b);
int cmpMoreHorizontal(const void* a, const void* b);
int cmpMoreVertical(const void* a, const void* b);
int cmpLessHorizontal(const void* a, const void* b);
int cmpLessVertical(const void* a, const void* b);

// Per point of a shifted list: squared radius over the greatest squared radius of its bin.
struct RatioPoint {
  int32_t x;
  int32_t y;
  float ratio;
};
std::vector<RatioPoint> ratiosOf(const std::vector<Pt>& shifted);
int angularBin(Pt shifted);

// Orders the list as the engine does, drawing from the generator in its current state.
std::vector<Pt> orderPoints(std::vector<Pt> points, uint32_t order);
// The sort alone, with the shift about the centre, without the loosening.
std::vector<Pt> sortedOnly(std::vector<Pt> points, uint32_t order);
// The loosening alone.
void loosenPoints(std::vector<Pt>& points);

struct Layout {
  int colorEnd, alphaIndex, mapStart, mapEnd, colorCount, mapCount, bpp;
  bool targetAlpha, corpusAlpha;
};
Layout layoutOfFormat(int format);

struct Grid {
  int w = 0, h = 0, bpp = 0;
  std::vector<uint8_t> px;
  uint8_t* at(int x, int y) { return &px[(static_cast<size_t>(y) * w + x) * bpp]; }
  const uint8_t* at(int x, int y) const { return &px[(static_cast<size_t>(y) * w + x) * bpp]; }
};

struct Params {
  bool wrapH = false, wrapV = false;
  uint32_t order = 1;
  double mapWeight = 0.5, sensitivity = 0.117;
  uint32_t neighbourLimit = 30, probeLimit = 200;
};

struct Run {
  int result = 0;
  Grid target;
  std::vector<int32_t> reports;  // every percentage handed to the callback
  int passes = 0;                // passes entered
  bool cancelled = false;        // the flag was set during the run
};

// cancelAtReport: -1 never; 0 the flag is set before the run; k the flag is set by the k-th
// callback call.
Run runEngine(const Layout& layout, Grid target, const Grid& corpus, const Params& params, int cancelAtReport = -1);

// The whole entry on packed pixels of n bytes (rows of width * n bytes) and a packed mask.
struct EntryRun {
  int result = 0;
  std::vector<uint8_t> image;
  std::vector<int32_t> reports;
  int passes = 0;
};
EntryRun runEntry(const std::vector<uint8_t>& image, const std::vector<uint8_t>& mask, int w, int h, int format,
                  const Params& params, int cancelAtReport = -1);

// The colour and map cost tables from their formulas.
std::vector<uint32_t> colorTable(float sensitivity);
std::vector<uint32_t> mapTable(float mapWeight);

}  // namespace synthref

#endif
