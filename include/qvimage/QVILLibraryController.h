#ifndef QVIMAGE_QVILLIBRARYCONTROLLER_H
#define QVIMAGE_QVILLIBRARYCONTROLLER_H

#include <cstdint>

#include "QVILTypes.h"

// Takes a row length in bytes and answers the row length to use.
typedef uint64_t (*QVILAllignRowBytesFunction)(uint64_t rowBytes);

// The library's controller. Its shared instance, created on first use, selects the tier for the
// processor (ippStaticInit) and installs the default row-alignment function.
class QV_API QVILLibraryController {
 public:
  // + sharedInstance
  static QVILLibraryController* sharedInstance();

  // - setAllignRowBytesFunction:  Stores the function as given; null included.
  void setAllignRowBytesFunction(QVILAllignRowBytesFunction function);
  // - allignRowBytesFunction
  QVILAllignRowBytesFunction allignRowBytesFunction() const;

 private:
  QVILLibraryController() = default;
  QVILAllignRowBytesFunction allignRowBytes = nullptr;
};

#endif
