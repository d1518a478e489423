#ifndef QVIMAGE_IPPCORE_H
#define QVIMAGE_IPPCORE_H

/* Library services: processor detection and tier selection, status texts, aligned memory. */

#include "ippdefs.h"

QV_BEGIN_C

/* Tier selection. */
QV_API IppStatus ippStaticInit(void);
QV_API IppStatus ippInit(void);
QV_API IppStatus ippInitCpu(int cpu);
QV_API IppStatus ippGetCpuFeatures(Ipp64u* pFeaturesMask, Ipp32u pCpuidInfoRegs[4]);
QV_API Ipp64u ippGetEnabledCpuFeatures(void);
QV_API IppStatus ippSetCpuFeaturesMask(Ipp64u featuresMask);
QV_API int ippIsCpuEnabled(int cpu);
QV_API int ippEnableCpu(int cpu);
QV_API IppStatus ippGetMaxCacheSizeB(int* pSizeByte);

/* Current jump-table slot (0 to 4) and the MOVBE flag of the u8 tier. */
QV_API extern int ippJumpIndexForMergedLibs;
QV_API extern int ippJumpIndexForMergedLibsLP;

/* Processor probes. */
QV_API int ipp_has_cpuid(void);
QV_API int ipp_max_cpuid_input(void);
QV_API int ipp_has_rdtsc(void);
QV_API int ipp_is_mmx_extension(void);
QV_API int ipp_is_ssx_extension(void);
QV_API int ipp_is_wni_extension(void);
QV_API int ipp_is_htt_extension(void);
QV_API int ipp_is_pni_extension(void);
QV_API int ipp_is_em64t_extension(void);
QV_API int ipp_is_mni_extension(void);
QV_API int ipp_is_sse41_extension(void);
QV_API int ipp_is_sse42_extension(void);
QV_API int ipp_is_movbe(void);
QV_API int ipp_is_avx_extension(void);
QV_API int ipp_is_GenuineIntel(void);
QV_API int ipp_get_cores_on_die(void);
QV_API Ipp64u ipp_get_pentium_counter(void);
/* Fills 23 fields: family, stepping, model, type, feature flags, leaf 2 EAX and EDX, MMX, (left
   alone), SSE, SSE2, hyper-threading, SSE3, 64-bit, SSSE3, cores on die, SSE4.1, SSE4.2,
   extended family, extended model, MOVBE, AVX, OSXSAVE. */
QV_API void ipp_get_pentium_ident(int ident[23]);

/* Floating-point control and status words. */
QV_API int ipp_isnan(double value);
QV_API int ipp_finite(double value);
QV_API void ipp_set_rc_ssx(unsigned int roundingMode);
QV_API void ipp_set_cw_ssx(unsigned int controlWord);
QV_API unsigned int ipp_clear_ssx(void);
QV_API int ipp_tst_daz_ssx(void);
QV_API unsigned int ipp_control87(unsigned int newValue, unsigned int mask);
QV_API unsigned int ipp_status87(void);
QV_API unsigned int ipp_clear87(void);
QV_API void ipp_set_rcpc_fpu(unsigned int roundingMode, unsigned int precision);
QV_API void ipp_set_cw_fpu(unsigned int controlWord);
QV_API void ps_set_cw_fpu(unsigned int controlWord);
QV_API unsigned int ps_get_cw_fpu(void);
QV_API unsigned int ps_get_sw_fpu(void);
QV_API void ps_clear_fpu(void);
QV_API void ps_set_ssx(unsigned int controlWord);
QV_API unsigned int ps_get_ssx(void);

/* Status texts: never null; an unknown code gives the text of ippStsUnknownStatusCodeErr. */
QV_API const char* ippGetStatusString(IppStatus status);

/* Aligned memory: 64-byte aligned blocks; the allocator behind them is replaceable by writing
   the hooks below before the first allocation (i_malloc and i_free together). */
QV_API void* ippMalloc(int length);
QV_API void ippFree(void* ptr);
QV_API Ipp8u* ippsMalloc_8u(int len);
QV_API Ipp16u* ippsMalloc_16u(int len);
QV_API void ippsFree(void* ptr);

QV_API extern void* (*i_malloc)(size_t size);
QV_API extern void* (*i_calloc)(size_t count, size_t size);
QV_API extern void* (*i_realloc)(void* ptr, size_t size);
QV_API extern void (*i_free)(void* ptr);
QV_API extern Ipp64s i_version;
QV_API extern Ipp64s i_min_version;

QV_END_C

#endif
