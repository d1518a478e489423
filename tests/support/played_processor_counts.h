#ifndef QV_TESTS_SUPPORT_PLAYED_PROCESSOR_COUNTS_H
#define QV_TESTS_SUPPORT_PLAYED_PROCESSOR_COUNTS_H

// A machine with a chosen number of logical and physical processors, for the strip
// decomposition. play() installs the counts and empties the library's cached counts; stop()
// gives the real machine back. Each read of a count is counted.

#include <cstdint>

namespace qvtest {

struct PlayedProcessorCounts {
  static inline uint32_t logical = 8;
  static inline uint32_t physical = 4;
  static inline int logicalReads = 0;
  static inline int physicalReads = 0;

  static void play(uint32_t logicalCount, uint32_t physicalCount);
  static void stop();
  static int reads() { return logicalReads + physicalReads; }
};

}  // namespace qvtest

#endif
