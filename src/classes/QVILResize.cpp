// QVILResize: the shared instance.

#include "qvimage/QVILResize.h"

#include "classes/shared_instance.h"

namespace {
QVILResize* sharedResize = nullptr;
}  // namespace

QVILResize* QVILResize::sharedInstance() {
  return qv::frame::sharedInstanceOf(sharedResize, [] { return new QVILResize(); });
}
