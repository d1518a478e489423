// Builds as C++ against the public headers alone and reaches a class through the shared library.
#include <qvimage/QVILConversion.h>
#include <qvimage/QVILLibraryController.h>
#include <qvimage/QVILSharedInternal.h>
#include <qvimage/qvimage.h>

#include <cstring>

int main() {
  Ipp8u src[32], dst[32];
  std::memset(src, 9, sizeof src);
  std::memset(dst, 0, sizeof dst);
  vImage_Buffer a{src, 2, 4, 16};
  vImage_Buffer b{dst, 2, 4, 16};
  if (!QVILConversion::sharedInstance()->imageLibCopyRGBA8888(&a, &b)) return 1;
  if (std::memcmp(src, dst, sizeof src) != 0) return 2;
  if (QVILLibraryController::sharedInstance()->allignRowBytesFunction()(65) != 128) return 3;
  if (QVILSharedInternal::numberOfChannelsPerPixel() != 4) return 4;
  return 0;
}
