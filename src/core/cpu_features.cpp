// The processor probes, the feature word and the features enabled for the library.

#include <x86intrin.h>

#include <cstring>

#include "core/cpu_state.h"
#include "core/cpuid_source.h"
#include "qvimage/ippcore.h"

extern "C" {

Ipp64u ownFeatures = 0;
int ownFeaturesAreValid = 0;
Ipp64u ownFeaturesMask = 7;

}  // extern "C"

namespace {

struct Registers {
  Ipp32u eax, ebx, ecx, edx;
};

Registers leaf(Ipp32u number, Ipp32u subleaf = 0) {
  Ipp32u r[4];
  qv::core::cpuid(number, subleaf, r);
  return {r[0], r[1], r[2], r[3]};
}

int bit(Ipp32u value, int index) { return static_cast<int>((value >> index) & 1u); }

// Feature bits of the word built by ownGetMaskFeatures.
Ipp64u buildFeatureWord() {
  const Registers one = leaf(1);
  Ipp64u word = 0;
  auto set = [&word](bool present, Ipp64u value) {
    if (present) word |= value;
  };
  set(bit(one.edx, 23), 0x1);
  set(bit(one.edx, 25), 0x2);
  set(bit(one.edx, 26), 0x4);
  set(bit(one.ecx, 0), 0x8);
  set(bit(one.ecx, 9), 0x10);
  set(bit(one.ecx, 22), 0x20);
  set(bit(one.ecx, 19), 0x40);
  set(bit(one.ecx, 20), 0x80);
  set(bit(one.ecx, 28), 0x100);
  set(ipp_is_avx_extension(), 0x200);
  set(bit(one.ecx, 25), 0x400);
  set(bit(one.ecx, 1), 0x800);
  if (((one.eax >> 8) & 0xF) == 0xB) set(bit(leaf(0x20000001).edx, 1), 0x1000);
  set(bit(one.ecx, 30), 0x2000);
  set(bit(one.ecx, 29), 0x4000);
  // Leaf 7 is read without testing that the processor offers it.
  const Registers seven = leaf(7);
  set(bit(one.ecx, 12) && bit(seven.ebx, 5) && bit(seven.ebx, 3) && bit(seven.ebx, 8), 0x8000);
  return word;
}

}  // namespace

extern "C" {

QV_API int ipp_has_cpuid(void) { return 1; }
QV_API int ipp_max_cpuid_input(void) { return static_cast<int>(leaf(0).eax); }
QV_API int ipp_has_rdtsc(void) { return bit(leaf(1).edx, 4); }
QV_API int ipp_is_mmx_extension(void) { return bit(leaf(1).edx, 23); }
QV_API int ipp_is_ssx_extension(void) { return bit(leaf(1).edx, 25); }
QV_API int ipp_is_wni_extension(void) { return bit(leaf(1).edx, 26); }
QV_API int ipp_is_htt_extension(void) {
  const Registers one = leaf(1);
  return bit(one.edx, 28) && ((one.ebx >> 16) & 0xFF) > 1;
}
QV_API int ipp_is_pni_extension(void) { return bit(leaf(1).ecx, 0); }
QV_API int ipp_is_em64t_extension(void) {
  if (leaf(0x80000000).eax < 0x80000001) return 0;
  return bit(leaf(0x80000001).edx, 29);
}
QV_API int ipp_is_mni_extension(void) { return bit(leaf(1).ecx, 9); }
QV_API int ipp_is_sse41_extension(void) { return bit(leaf(1).ecx, 19); }
QV_API int ipp_is_sse42_extension(void) { return bit(leaf(1).ecx, 20); }
QV_API int ipp_is_movbe(void) { return bit(leaf(1).ecx, 22); }

QV_API int ipp_is_avx_extension(void) {
  const Registers one = leaf(1);
  // XGETBV exists only when OSXSAVE (bit 27) is set, so it is asked only then.
  if (!bit(one.ecx, 27) || !bit(one.ecx, 28)) return 0;
  return (qv::core::xgetbv(0) & 6) == 6;
}

QV_API int ipp_is_GenuineIntel(void) {
  const Registers zero = leaf(0);
  char vendor[12];
  memcpy(vendor, &zero.ebx, 4);
  memcpy(vendor + 4, &zero.edx, 4);
  memcpy(vendor + 8, &zero.ecx, 4);
  return memcmp(vendor, "GenuineIntel", 12) == 0;
}

QV_API int ipp_get_cores_on_die(void) {
  if (leaf(0).eax < 4) return 1;
  return static_cast<int>(leaf(4, 0).eax >> 26) + 1;
}

QV_API Ipp64u ipp_get_pentium_counter(void) { return __rdtsc(); }

QV_API void ipp_get_pentium_ident(int ident[23]) {
  const Registers one = leaf(1);
  const Registers two = leaf(2);
  ident[0] = static_cast<int>((one.eax >> 8) & 0xF);
  ident[1] = static_cast<int>(one.eax & 0xF);
  ident[2] = static_cast<int>((one.eax >> 4) & 0xF);
  // Bits 11 and 12: one place below the processor-type field that CPUID documents, as kept.
  ident[3] = static_cast<int>((one.eax >> 11) & 0x3);
  ident[4] = static_cast<int>(one.edx);
  ident[5] = static_cast<int>(two.eax);
  ident[6] = static_cast<int>(two.edx);
  ident[7] = bit(one.edx, 23);
  // ident[8] is left alone.
  ident[9] = bit(one.edx, 25);
  ident[10] = bit(one.edx, 26);
  ident[11] = ipp_is_htt_extension();
  ident[12] = bit(one.ecx, 0);
  ident[13] = ipp_is_em64t_extension();
  ident[14] = bit(one.ecx, 9);
  ident[15] = ipp_get_cores_on_die();
  ident[16] = bit(one.ecx, 19);
  ident[17] = bit(one.ecx, 20);
  ident[18] = static_cast<int>((one.eax >> 20) & 0xFF);
  ident[19] = static_cast<int>((one.eax >> 16) & 0xF);
  ident[20] = bit(one.ecx, 22);
  ident[21] = bit(one.ecx, 28);
  ident[22] = bit(one.ecx, 27);
}

void ownGetReg(Ipp32u registers[4], int leafNumber, int subleaf) {
  qv::core::cpuid(static_cast<Ipp32u>(leafNumber), static_cast<Ipp32u>(subleaf), registers);
}

int ownGetMaskFeatures(Ipp64u* features) {
  if (!ownFeaturesAreValid) {
    if (!ipp_has_cpuid()) return 0;
    ownFeatures = buildFeatureWord();
    ownFeaturesAreValid = 1;
  }
  *features = ownFeatures;
  return 1;
}

int ownGetFeature(Ipp64u bits) { return (ownFeaturesMask & bits) == bits ? 1 : 0; }

int ownSetFeatureMask(Ipp64u mask) {
  ownFeaturesMask = mask;
  return 1;
}

void ownMaskIsFeatures(void) {
  ownFeatures = ownFeaturesMask;
  ownFeaturesAreValid = 1;
}

// "getinfoa" in little-endian order: with it, the caller's array names the CPUID leaf to read.
static const Ipp64u kCpuidInfoMagic = 0x616F666E69746567ULL;

QV_API IppStatus ippGetCpuFeatures(Ipp64u* pFeaturesMask, Ipp32u pCpuidInfoRegs[4]) {
  Ipp64u features = 0;
  if (!ownGetMaskFeatures(&features)) return ippStsNotSupportedCpu;
  if (pFeaturesMask == nullptr) return ippStsNullPtrErr;
  const Ipp64u previous = *pFeaturesMask;
  *pFeaturesMask = features;
  if (pCpuidInfoRegs != nullptr) {
    if (previous == kCpuidInfoMagic)
      ownGetReg(pCpuidInfoRegs, static_cast<int>(pCpuidInfoRegs[0]), static_cast<int>(pCpuidInfoRegs[2]));
    else
      ownGetReg(pCpuidInfoRegs, 1, 0);
  }
  return ippStsNoErr;
}

QV_API Ipp64u ippGetEnabledCpuFeatures(void) { return ownFeaturesMask; }

QV_API IppStatus ippSetCpuFeaturesMask(Ipp64u featuresMask) {
  ownSetFeatureMask(featuresMask);
  return ippStsNoErr;
}

QV_API int ippIsCpuEnabled(int) { return 1; }
QV_API int ippEnableCpu(int) { return 0; }

}  // extern "C"
