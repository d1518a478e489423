#ifndef QV_CORE_CPU_STATE_H
#define QV_CORE_CPU_STATE_H

// The library's record of the processor and of the enabled features. Internal to the library;
// kernels ask ownGetFeature before taking a path that needs an optional instruction.

#include "qvimage/ippdefs.h"

#define QV_HIDDEN __attribute__((visibility("hidden")))

QV_BEGIN_C

QV_HIDDEN extern Ipp64u ownFeatures;
QV_HIDDEN extern int ownFeaturesAreValid;
QV_HIDDEN extern Ipp64u ownFeaturesMask;
QV_HIDDEN extern int cacheSize;
QV_HIDDEN extern int ownStatus;

QV_HIDDEN int ownGetMaskFeatures(Ipp64u* features);
QV_HIDDEN int ownGetFeature(Ipp64u bits);
QV_HIDDEN int ownSetFeatureMask(Ipp64u mask);
QV_HIDDEN void ownMaskIsFeatures(void);
QV_HIDDEN void ownGetReg(Ipp32u registers[4], int leaf, int subleaf);
QV_HIDDEN int ownGetCacheSize(void);

QV_END_C

namespace qv::core {

// The bytes of CPUID leaf 2 in the layout that the descriptor tables are searched in: the
// non-empty registers EAX, EBX, ECX, EDX side by side. Answers false when AL is not 1; otherwise
// *searchEnd is the highest index to compare (index 0, AL, is never compared).
bool readLeaf2Descriptors(Ipp8u bytes[20], int* searchEnd);

// Whether a descriptor stands among bytes 1..searchEnd, compared from the last one down.
bool descriptorPresent(const Ipp8u* bytes, int searchEnd, Ipp32u key);

// The descriptors of leaf 2 with the size of the cache each names, largest first, ending in a
// zero key.
struct CacheDescriptor {
  Ipp32u key;
  Ipp32u size;
};
constexpr int kTableCacheRows = 55;
extern const CacheDescriptor tableCache[kTableCacheRows + 1];

}  // namespace qv::core

#endif
