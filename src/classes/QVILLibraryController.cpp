#include "qvimage/QVILLibraryController.h"

#include "qvimage/ippcore.h"

namespace {

// The next multiple of 64, or the length itself if it is one already.
uint64_t QVILAllignRowBytesDefault(uint64_t rowBytes) { return (rowBytes + 63) & ~static_cast<uint64_t>(63); }

QVILLibraryController* sharedController = nullptr;

}  // namespace

QVILLibraryController* QVILLibraryController::sharedInstance() {
  if (sharedController == nullptr) {
    ippStaticInit();  // status ignored: every outcome leaves a valid tier
    sharedController = new QVILLibraryController();
    sharedController->allignRowBytes = QVILAllignRowBytesDefault;
  }
  return sharedController;
}

void QVILLibraryController::setAllignRowBytesFunction(QVILAllignRowBytesFunction function) {
  allignRowBytes = function;
}

QVILAllignRowBytesFunction QVILLibraryController::allignRowBytesFunction() const { return allignRowBytes; }
