#ifndef QVIMAGE_QVILHASH_H
#define QVIMAGE_QVILHASH_H

#include <cstdint>
#include <string>

#include "QVILTypes.h"

// A quick checksum of a byte buffer, as text.
class QV_API QVILHash {
 public:
  // + sharedInstance
  static QVILHash* sharedInstance();

  // - imageLibComputeFastestChecksumForData:sourceLength:
  //   Above 1023 bytes the Adler-32 of the data, started from 1 (its standard value); otherwise
  //   the CRC-32, started from 0 (its standard value). The value's four bytes are written as
  //   eight hexadecimal digits, lowest byte first: the CRC-32 0xCBF43926 reads "2639f4cb".
  //   A length below 1 is refused by the CRC and gives the start value, "00000000". The two
  //   branches give different families of values, so results are comparable only between
  //   lengths on the same side of 1024.
  std::string imageLibComputeFastestChecksumForData(const void* data, int32_t sourceLength);

 private:
  QVILHash() = default;
};

#endif
