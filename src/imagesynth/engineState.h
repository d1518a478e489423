#ifndef QV_IMAGESYNTH_ENGINESTATE_H
#define QV_IMAGESYNTH_ENGINESTATE_H

// The working state of one run of the matching engine.

#include <cstdint>

#include "imagesynth/offsetTable.h"
#include "qvimage/imageSynth.h"

namespace qv::synth {

constexpr uint32_t kMaxNeighbours = 64;
constexpr uint32_t kPassCount = 6;
constexpr uint32_t kSeed = 1198472;

// One pixel of the current target point's neighbourhood, with a private copy of its pixelels.
struct Neighbour {
  unsigned char pixel[MAX_IMAGE_SYNTH_BPP];
  Point offset;  // from the target point, before any wrap
  Point source;  // where the neighbour last took its colour from, after any wrap
};

struct PassEntry {
  uint32_t start;  // always 0, and never read
  uint32_t count;
};

// Where a corpus row's points start in the corpus list, and the one run of the row that holds
// none of them (gap 0xFFFFFFFF: the row has another shape).
struct CorpusRow {
  uint32_t first;
  uint32_t gapStart;
  uint32_t gap;
};

struct ProgressRecord {
  void* context;
  ImageSynthProgressCallback callback;
  uint32_t lastPercent;
  uint32_t total;
  uint32_t completed;
};

struct EngineState {
  const ImageFormatIndices* indices;
  Map* target;
  const Map* corpus;
  ImageSynthParametersStruct parameters;
  void* random;
  SArray* targetPoints;
  SArray* corpusPoints;
  OffsetTable sortedOffsets;
  Map hasValue;
  Map sourceOf;
  Map triedStamp;
  uint16_t colorDiff[512];
  uint32_t mapDiff[512];
  uint32_t penalty;  // cost of a neighbour that falls off the corpus or outside its mask
  Neighbour neighbours[kMaxNeighbours];
  uint32_t neighbourCount;
  // The one-word-a-pixel view of the corpus and the current neighbourhood in its terms.
  uint32_t* corpusCells;  // null where the layout takes the general road
  int32_t cellDeltas[kMaxNeighbours];
  unsigned char cellColours[kMaxNeighbours][3];
  int32_t reachLeft, reachRight, reachUp, reachDown;
  CorpusRow* corpusRows;  // one per corpus row, and one past the last
  uint32_t* bucketRows;   // the row of every 2^bucketShift-th corpus index
  uint32_t bucketShift;
  PassEntry passes[kPassCount];
  ProgressRecord progress;
};

// The pass table for n target points: n, n, then three quarters of the entry before, four times.
void fillPassEntries(uint32_t n, PassEntry passes[kPassCount]);

}  // namespace qv::synth

#endif
