// The processor probes and the processor record, on played-back processors.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qvimage/ippcore.h"
#include "support/playback_cpu.h"

namespace {

using qvtest::PlaybackProcessor;

TEST(Probes, EachReadsItsBit) {
  PlaybackProcessor cpu("GenuineIntel", 11);
  cpu.answer(1, 0,
             {0, 0x00020000, (1u << 0) | (1u << 9) | (1u << 19) | (1u << 20) | (1u << 22),
              (1u << 4) | (1u << 23) | (1u << 25) | (1u << 26) | (1u << 28)})
      .answer(4, 0, {7u << 26, 0, 0, 0})
      .answer(0x80000000, 0, {0x80000008, 0, 0, 0})
      .answer(0x80000001, 0, {0, 0, 0, 1u << 29});
  EXPECT_EQ(ipp_has_cpuid(), 1);
  EXPECT_EQ(ipp_max_cpuid_input(), 11);
  EXPECT_EQ(ipp_has_rdtsc(), 1);
  EXPECT_EQ(ipp_is_mmx_extension(), 1);
  EXPECT_EQ(ipp_is_ssx_extension(), 1);
  EXPECT_EQ(ipp_is_wni_extension(), 1);
  EXPECT_EQ(ipp_is_htt_extension(), 1);
  EXPECT_EQ(ipp_is_pni_extension(), 1);
  EXPECT_EQ(ipp_is_em64t_extension(), 1);
  EXPECT_EQ(ipp_is_mni_extension(), 1);
  EXPECT_EQ(ipp_is_sse41_extension(), 1);
  EXPECT_EQ(ipp_is_sse42_extension(), 1);
  EXPECT_EQ(ipp_is_movbe(), 1);
  EXPECT_EQ(ipp_is_avx_extension(), 0);
  EXPECT_EQ(ipp_is_GenuineIntel(), 1);
  EXPECT_EQ(ipp_get_cores_on_die(), 8);
}

TEST(Probes, AbsentBitsAnswerZero) {
  PlaybackProcessor cpu("AuthenticAMD", 3);
  cpu.answer(1, 0, {0, 0x00010000, 0, 1u << 28}).answer(4, 0, {7u << 26, 0, 0, 0});
  EXPECT_EQ(ipp_has_rdtsc(), 0);
  EXPECT_EQ(ipp_is_htt_extension(), 0);    // one logical processor: EBX bits 16-23 not above 1
  EXPECT_EQ(ipp_is_em64t_extension(), 0);  // leaf 0x80000001 absent
  EXPECT_EQ(ipp_is_GenuineIntel(), 0);
  EXPECT_EQ(ipp_get_cores_on_die(), 1);  // leaf 0 below 4
}

TEST(Probes, AvxNeedsBothCpuidBitsAndBothXcr0Bits) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.answer(1, 0, {0, 0, (1u << 27) | (1u << 28), 0});
  cpu.xcr0(6);
  EXPECT_EQ(ipp_is_avx_extension(), 1);
  cpu.xcr0(4);
  EXPECT_EQ(ipp_is_avx_extension(), 0);
  cpu.xcr0(2);
  EXPECT_EQ(ipp_is_avx_extension(), 0);
  cpu.answer(1, 0, {0, 0, 1u << 28, 0});
  cpu.xcr0(6);
  EXPECT_EQ(ipp_is_avx_extension(), 0);
}

TEST(Probes, ProcessorRecordFieldsInOrder) {
  PlaybackProcessor cpu("GenuineIntel", 4);
  // family 6, model 0xA, stepping 9, EAX bits 11-12 = 2, extended model 3, extended family 0x12
  const uint32_t eax = 0x9 | (0xA << 4) | (0x6 << 8) | (2u << 11) | (3u << 16) | (0x12u << 20);
  cpu.answer(1, 0,
             {eax, 0x00040000, (1u << 0) | (1u << 9) | (1u << 19) | (1u << 22) | (1u << 27) | (1u << 28),
              (1u << 23) | (1u << 26) | (1u << 28)})
      .answer(2, 0, {0x11223301, 0, 0, 0x44556677})
      .answer(4, 0, {3u << 26, 0, 0, 0});
  int ident[23];
  for (int& field : ident) field = -77;
  ipp_get_pentium_ident(ident);
  EXPECT_EQ(ident[0], 6);
  EXPECT_EQ(ident[1], 9);
  EXPECT_EQ(ident[2], 0xA);
  EXPECT_EQ(ident[3], static_cast<int>((eax >> 11) & 3));
  EXPECT_EQ(ident[4], static_cast<int>((1u << 23) | (1u << 26) | (1u << 28)));
  EXPECT_EQ(ident[5], 0x11223301);
  EXPECT_EQ(ident[6], 0x44556677);
  EXPECT_EQ(ident[7], 1);
  EXPECT_EQ(ident[8], -77);  // left alone
  EXPECT_EQ(ident[9], 0);
  EXPECT_EQ(ident[10], 1);
  EXPECT_EQ(ident[11], 1);
  EXPECT_EQ(ident[12], 1);
  EXPECT_EQ(ident[13], 0);
  EXPECT_EQ(ident[14], 1);
  EXPECT_EQ(ident[15], 4);
  EXPECT_EQ(ident[16], 1);
  EXPECT_EQ(ident[17], 0);
  EXPECT_EQ(ident[18], 0x12);
  EXPECT_EQ(ident[19], 3);
  EXPECT_EQ(ident[20], 1);
  EXPECT_EQ(ident[21], 1);  // the bare CPUID bit, whatever the system says
  EXPECT_EQ(ident[22], 1);
}

TEST(Probes, TimeStampCounterAdvances) {
  const Ipp64u first = ipp_get_pentium_counter();
  const Ipp64u second = ipp_get_pentium_counter();
  EXPECT_GE(second, first);
}

TEST(NumericServices, NanAndFinite) {
  EXPECT_EQ(ipp_isnan(std::numeric_limits<double>::quiet_NaN()), 1);
  EXPECT_EQ(ipp_isnan(1.0), 0);
  EXPECT_EQ(ipp_finite(1.0), 1);
  EXPECT_EQ(ipp_finite(std::numeric_limits<double>::infinity()), 0);
  EXPECT_EQ(ipp_finite(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(NumericServices, SseRoundingFieldAndControlWord) {
  const unsigned saved = ps_get_ssx();
  ipp_set_rc_ssx(3);
  EXPECT_EQ((ps_get_ssx() >> 13) & 3, 3u);
  volatile float value = -2.7f;
  EXPECT_EQ(std::nearbyint(value), -2.0f);  // toward zero; nearest would give -3
  ipp_set_rc_ssx(0);
  EXPECT_EQ((ps_get_ssx() >> 13) & 3, 0u);
  ipp_set_cw_ssx(saved);
  EXPECT_EQ(ps_get_ssx(), saved);
}

TEST(NumericServices, X87ControlWord) {
  const unsigned saved = ps_get_cw_fpu();
  ipp_set_rcpc_fpu(3, 2);
  EXPECT_EQ((ps_get_cw_fpu() >> 10) & 3, 3u);
  EXPECT_EQ((ps_get_cw_fpu() >> 8) & 3, 2u);
  ps_set_cw_fpu(saved);
  EXPECT_EQ(ps_get_cw_fpu(), saved);
  EXPECT_EQ(ipp_control87(0, 0), saved);
}

}  // namespace
