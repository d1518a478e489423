#include "platform/assertion.h"

#include <cstdio>
#include <cstdlib>

#include "qvimage/QVILTypes.h"

namespace qv::platform {
namespace {

QVILAssertionHandler installedHandler = nullptr;

[[noreturn]] void printAndAbort(const char* description) {
  fprintf(stderr, "Assertion failure: %s\n", description);
  fflush(stderr);
  abort();
}

}  // namespace

void assertionFailed(const char* description) {
  if (installedHandler == nullptr) printAndAbort(description);
  installedHandler(description);
}

}  // namespace qv::platform

extern "C" QV_API void QVILSetAssertionHandler(QVILAssertionHandler handler) {
  qv::platform::installedHandler = handler;
}
