#ifndef QV_PLATFORM_LOG_H
#define QV_PLATFORM_LOG_H

namespace qv::platform {

// Writes one log line through the installed handler; printf-style formatting.
void logLine(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace qv::platform

#endif
