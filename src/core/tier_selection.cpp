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

struct ForcedRow {
  int code;
  TierChoice choice;
};

// The processor codes that force a tier.
constexpr ForcedRow kForcedRows[] = {
    {0x00, {1, 0, 0xF}},   {0x20, {1, 0, 0xF}},   {0x42, {1, 0, 0xF}},   {0x21, {2, 0, 0x1F}},
    {0x22, {2, 0, 0x1F}},  {0x43, {2, 0, 0x1F}},  {0x24, {2, 1, 0x1F}},  {0x23, {3, 0, 0x5F}},
    {0x44, {3, 0, 0x5F}},  {0x25, {3, 0, 0xDF}},  {0x45, {3, 0, 0xDF}},  {0x26, {3, 0, 0xCDF}},
    {0x47, {3, 0, 0xCDF}}, {0x46, {4, 0, 0xFDF}}, {0x49, {4, 0, 0xFDF}}, {0x4A, {4, 0, 0xFDF}},
};

// Codes that are known but select nothing: the tier stays and the mask is recorded.
bool keepsTheTier(int cpu) { return (cpu >= 0x01 && cpu <= 0x0B) || cpu == 0x40 || cpu == 0x41 || cpu == 0x60; }

Forced forcedChoice(int cpu, TierChoice* choice) {
  for (const ForcedRow& row : kForcedRows) {
    if (row.code == cpu) {
      *choice = row.choice;
      return Forced::Tier;
    }
  }
  return keepsTheTier(cpu) ? Forced::KeepAndRecord : Forced::Mismatch;
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
