// QVILCompression: the shared instance.

#include "classes/shared_instance.h"
#include "qvimage/QVILCompression.h"

namespace {

QVILCompression* sharedCompression = nullptr;

}  // namespace

QVILCompression* QVILCompression::sharedInstance() {
  return qv::frame::sharedInstanceOf(sharedCompression, [] { return new QVILCompression(); });
}
