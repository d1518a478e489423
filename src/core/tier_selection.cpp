// Choosing the jump-table slot: from the processor's features (ippStaticInit) or by a forced
// processor code (ippInitCpu).

#include "core/cpu_state.h"
#include "qvimage/ippcore.h"

extern "C" {

int ippJumpIndexForMergedLibs = 0;
int ippJumpIndexForMergedLibsLP = 0;

}  // extern "C"

namespace {

struct TierChoice {
  int slot;
  int lowPower;
  Ipp64u mask;
};

void apply(const TierChoice& choice) {
  ippJumpIndexForMergedLibs = choice.slot;
  ippJumpIndexForMergedLibsLP = choice.lowPower;
  ownSetFeatureMask(choice.mask);
}

// First matching row decides; the last row is the processor below the SSE3 level.
TierChoice chooseFromFeatures(Ipp64u f, IppStatus* status) {
  *status = ippStsNoErr;
  if ((f & 0x100) && (f & 0x200) && ippIsCpuEnabled(0x46)) return {4, 0, f & 0x6FDF};
  if (f & 0x40) return {3, 0, f & 0xCDF};
  if ((f & 0x10) && (f & 0x20)) return {2, 1, f & 0x1F};
  if (f & 0x10) return {2, 0, f & 0x1F};
  if (f & 0x8) return {1, 0, f & 0xF};
  *status = ippStsNotSupportedCpu;
  return {0, 0, f & 0x7};
}

enum class Forced { Tier, KeepAndRecord, Mismatch };

// The processor codes that ippInitCpu accepts.
Forced forcedChoice(int cpu, TierChoice* choice) {
  switch (cpu) {
    case 0x00: case 0x20: case 0x42: *choice = {1, 0, 0xF}; return Forced::Tier;
    case 0x21: case 0x22: case 0x43: *choice = {2, 0, 0x1F}; return Forced::Tier;
    case 0x24: *choice = {2, 1, 0x1F}; return Forced::Tier;
    case 0x23: case 0x44: *choice = {3, 0, 0x5F}; return Forced::Tier;
    case 0x25: case 0x45: *choice = {3, 0, 0xDF}; return Forced::Tier;
    case 0x26: case 0x47: *choice = {3, 0, 0xCDF}; return Forced::Tier;
    case 0x46: case 0x49: case 0x4A: *choice = {4, 0, 0xFDF}; return Forced::Tier;
    case 0x40: case 0x41: case 0x60: return Forced::KeepAndRecord;
    default: return (cpu >= 0x01 && cpu <= 0x0B) ? Forced::KeepAndRecord : Forced::Mismatch;
  }
}

}  // namespace

extern "C" {

QV_API IppStatus ippStaticInit(void) {
  Ipp64u features = 0;
  IppStatus status = ippGetCpuFeatures(&features, nullptr);
  if (status == ippStsNoErr)
    apply(chooseFromFeatures(features, &status));
  else
    apply({0, 0, 0x7});
  // Another vendor is served by the same decision; only the status tells it apart.
  if (!ipp_has_cpuid() || !ipp_is_GenuineIntel()) status = ippStsNonIntelCpu;
  return status;
}

QV_API IppStatus ippInit(void) { return ippStaticInit(); }

QV_API IppStatus ippInitCpu(int cpu) {
  if (cpu == -1) return ippInit();
  TierChoice choice{};
  switch (forcedChoice(cpu, &choice)) {
    case Forced::Tier:
      apply(choice);
      ownMaskIsFeatures();
      return ippStsNoErr;
    case Forced::KeepAndRecord:
      ownMaskIsFeatures();
      return ippStsNotSupportedCpu;
    case Forced::Mismatch:
      break;
  }
  return ippStsCpuMismatch;
}

}  // extern "C"
