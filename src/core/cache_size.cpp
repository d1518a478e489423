// The largest data cache in bytes: from CPUID leaf 4, or from the descriptors of leaf 2.

#include <cstring>

#include "core/cpu_state.h"
#include "core/cpuid_source.h"
#include "qvimage/ippcore.h"

extern "C" {

int cacheSize = 0;
int ownStatus = 1;  // 1: not measured yet

}  // extern "C"

namespace {}  // namespace

namespace qv::core {

// Largest size first: the first descriptor found is the processor's largest cache.
const CacheDescriptor tableCache[kTableCacheRows + 1] = {
    {0xEC, 25165824}, {0xEB, 18874368}, {0x4D, 16777216}, {0xEA, 12582912}, {0x4C, 12582912}, {0xE4, 8388608},
    {0xDE, 8388608},  {0x4B, 8388608},  {0x47, 8388608},  {0x4E, 6291456},  {0x4A, 6291456},  {0xE3, 4194304},
    {0xDD, 4194304},  {0xD8, 4194304},  {0x49, 4194304},  {0x29, 4194304},  {0x46, 4194304},  {0x48, 3145728},
    {0xE2, 2097152},  {0xDC, 2097152},  {0xD7, 2097152},  {0xD2, 2097152},  {0x25, 2097152},  {0x7D, 2097152},
    {0x85, 2097152},  {0x45, 2097152},  {0xD6, 1048576},  {0xD1, 1048576},  {0x23, 1048576},  {0x87, 1048576},
    {0x7C, 1048576},  {0x78, 1048576},  {0x84, 1048576},  {0x44, 1048576},  {0xD0, 524288},   {0x22, 524288},
    {0x7B, 524288},   {0x80, 524288},   {0x86, 524288},   {0x3E, 524288},   {0x7F, 524288},   {0x83, 524288},
    {0x43, 524288},   {0x3D, 393216},   {0x21, 262144},   {0x7A, 262144},   {0x82, 262144},   {0x3C, 262144},
    {0x3F, 262144},   {0x42, 262144},   {0x3A, 196608},   {0x79, 131072},   {0x39, 131072},   {0x3B, 131072},
    {0x41, 131072},   {0, 0},
};

bool descriptorPresent(const Ipp8u* bytes, int searchEnd, Ipp32u key) {
  for (int index = searchEnd; index >= 1; --index)
    if (bytes[index] == key) return true;
  return false;
}

}  // namespace qv::core

namespace {

int largestCacheFromLeaf4() {
  int largest = 0;
  for (Ipp32u subleaf = 0; subleaf < 32; ++subleaf) {
    Ipp32u r[4];
    qv::core::cpuid(4, subleaf, r);
    const Ipp32u type = r[0] & 0x1F;
    if (type == 0) break;
    if (type == 2) continue;  // instruction cache
    const Ipp32u lineSize = (r[1] & 0xFFF) + 1;
    const Ipp32u partitions = ((r[1] >> 12) & 0x3FF) + 1;
    const Ipp32u ways = ((r[1] >> 22) & 0x3FF) + 1;
    const Ipp32u sets = r[2] + 1;
    const int size = static_cast<int>(lineSize * sets * partitions * ways);
    if (size > largest) largest = size;
  }
  return largest;
}

void remember(int size, IppStatus status) {
  cacheSize = size;
  ownStatus = status;
}

}  // namespace

namespace qv::core {

bool readLeaf2Descriptors(Ipp8u bytes[20], int* searchEnd) {
  Ipp32u r[4];
  cpuid(2, 0, r);
  if ((r[0] & 0xFF) != 1) return false;
  memset(bytes, 0, 20);
  int used = 0;
  int end = 0;
  for (int index = 0; index < 4; ++index) {
    if (r[index] & 0x80000000u) continue;  // bit 31 marks a register without descriptors
    memcpy(bytes + used, &r[index], 4);
    used += 4;
    end += index == 0 ? 3 : 4;
  }
  *searchEnd = end;
  return true;
}

}  // namespace qv::core

extern "C" {

int ownGetCacheSize(void) {
  Ipp8u bytes[20];
  int searchEnd = 0;
  if (!qv::core::readLeaf2Descriptors(bytes, &searchEnd)) return -1;
  for (const qv::core::CacheDescriptor* row = qv::core::tableCache; row->key != 0; ++row)
    if (qv::core::descriptorPresent(bytes, searchEnd, row->key)) return static_cast<int>(row->size);
  return -1;
}

QV_API IppStatus ippGetMaxCacheSizeB(int* pSizeByte) {
  if (pSizeByte == nullptr) return ippStsNullPtrErr;
  if (ownStatus == 1) {
    if (!ipp_has_cpuid() || ipp_max_cpuid_input() < 2 || !ipp_is_GenuineIntel()) {
      remember(0, ippStsNotSupportedCpu);
    } else if (ipp_max_cpuid_input() < 4) {
      const int size = ownGetCacheSize();
      remember(size >= 0 ? size : 0, size >= 0 ? ippStsNoErr : ippStsUnknownCacheSize);
    } else {
      const int size = largestCacheFromLeaf4();
      remember(size, size == 0 ? ippStsUnknownCacheSize : ippStsNoErr);
    }
  }
  *pSizeByte = cacheSize;
  return ownStatus;
}

}  // extern "C"
