#ifndef QV_PLATFORM_ASSERTION_H
#define QV_PLATFORM_ASSERTION_H

namespace qv::platform {

// Reports a failed invariant through the installed assertion handler. The default handler
// prints the description and aborts; an installed one may return, and the caller goes on.
void assertionFailed(const char* description);

}  // namespace qv::platform

#endif
