#ifndef QV_CLASSES_SHARED_INSTANCE_H
#define QV_CLASSES_SHARED_INSTANCE_H

#include "qvimage/QVILLibraryController.h"

namespace qv::frame {

// The process-wide instance of a class: made by make() on first use, after the controller's,
// and never released. Unsynchronised: the client makes its first call from one thread.
template <typename Class, typename Make>
Class* sharedInstanceOf(Class*& slot, Make make) {
  if (slot == nullptr) {
    QVILLibraryController::sharedInstance();
    slot = make();
  }
  return slot;
}

}  // namespace qv::frame

#endif
