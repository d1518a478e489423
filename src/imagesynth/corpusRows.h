#ifndef QV_IMAGESYNTH_CORPUSROWS_H
#define QV_IMAGESYNTH_CORPUSROWS_H

// The corpus point of a drawn index without reading the corpus list where a row is simple: the
// list is in row order, so a per-row count locates the row, and in a row whose corpus points are
// all its pixels but one run (a whole row, or a row crossing a hole) the column follows from the
// run. Other rows read the list. The answer is always the list's entry; only the memory touched
// differs, which matters because the draws land anywhere in the corpus.

#include <cstdint>

#include "imagesynth/engineState.h"

namespace qv::synth {

void prepareCorpusRows(EngineState& s);
void freeCorpusRows(EngineState& s);
Point corpusPointAt(const EngineState& s, uint32_t index);

}  // namespace qv::synth

#endif
