#ifndef QVIMAGE_IPPDEFS_H
#define QVIMAGE_IPPDEFS_H

/* Element types, records and linkage shared by every primitive header. */

#include <stddef.h>
#include <stdint.h>

#include "ippstatus.h"

#ifdef __cplusplus
#define QV_EXTERN_C extern "C"
#define QV_BEGIN_C extern "C" {
#define QV_END_C }
#else
#define QV_EXTERN_C extern
#define QV_BEGIN_C
#define QV_END_C
#endif

/* Marks a symbol of the public boundary; everything else in the library is hidden. */
#define QV_API __attribute__((visibility("default")))

typedef unsigned char Ipp8u;
typedef unsigned short Ipp16u;
typedef signed short Ipp16s;
typedef unsigned int Ipp32u;
typedef signed int Ipp32s;
typedef float Ipp32f;
typedef double Ipp64f;
typedef unsigned long long Ipp64u;
typedef signed long long Ipp64s;

typedef struct {
  int width;
  int height;
} IppiSize;

typedef struct {
  int x;
  int y;
} IppiPoint;

typedef struct {
  int x;
  int y;
  int width;
  int height;
} IppiRect;

#endif
