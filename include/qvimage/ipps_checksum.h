#ifndef QVIMAGE_IPPS_CHECKSUM_H
#define QVIMAGE_IPPS_CHECKSUM_H

/* Adler-32 and CRC-32 checksums. The running value is read as the start value and receives the
   result, in the form that the zlib entry points return (the CRC not inverted). */

#include "ippdefs.h"

QV_BEGIN_C

/* A null running value gives ippStsNullPtrErr; a null source sets the value to 1 and answers
   ippStsNoErr. The length is not tested: read as signed, 0x80000000 and above do no work, and
   the value comes back reduced modulo 65521 but otherwise unchanged. */
QV_API IppStatus ippsAdler32_8u(const Ipp8u* pSrc, Ipp32u len, Ipp32u* pAdler32);

/* Null pointers give ippStsNullPtrErr, a length below 1 ippStsSizeErr; the value is then
   untouched. */
QV_API IppStatus ippsCRC32_8u(const Ipp8u* pSrc, int len, Ipp32u* pCRC32);

QV_END_C

#endif
