// QVILHash: the shared instance and the length-chosen checksum as text.

#include "qvimage/QVILHash.h"

#include <cstdio>

#include "classes/shared_instance.h"
#include "qvimage/ipps_checksum.h"

namespace {

QVILHash* sharedHash = nullptr;

constexpr int32_t kLongestCrcInput = 1023;
// The start values of the two branches: the standard ones of each checksum.
constexpr Ipp32u kAdlerStart = 1;
constexpr Ipp32u kCrcStart = 0;

}  // namespace

QVILHash* QVILHash::sharedInstance() {
  return qv::frame::sharedInstanceOf(sharedHash, [] { return new QVILHash(); });
}

std::string QVILHash::imageLibComputeFastestChecksumForData(const void* data, int32_t sourceLength) {
  const auto* bytes = static_cast<const Ipp8u*>(data);
  Ipp32u value = 0;
  if (sourceLength > kLongestCrcInput) {
    value = kAdlerStart;
    ippsAdler32_8u(bytes, static_cast<Ipp32u>(sourceLength), &value);  // status not looked at
  } else {
    value = kCrcStart;
    ippsCRC32_8u(bytes, sourceLength, &value);  // status not looked at
  }
  char text[9];
  snprintf(text, sizeof text, "%02x%02x%02x%02x", value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF, value >> 24);
  return text;
}
