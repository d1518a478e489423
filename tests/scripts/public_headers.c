/* Builds as C against the public headers alone and calls through a stub. */
#include <qvimage/qvimage.h>
#include <string.h>

int main(void) {
  Ipp8u src[16], dst[16];
  IppiSize roi = {4, 1};
  memset(src, 7, sizeof src);
  memset(dst, 0, sizeof dst);
  if (ippiCopy_8u_C4R(src, 16, dst, 16, roi) != ippStsNoErr) return 1;
  if (memcmp(src, dst, sizeof src) != 0) return 2;
  if (strcmp(ippGetStatusString(ippStsNullPtrErr), "ippStsNullPtrErr: Null pointer error.") != 0) return 3;
  return 0;
}
