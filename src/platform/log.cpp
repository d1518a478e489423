#include "platform/log.h"

#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <string>

#include "qvimage/QVILTypes.h"

namespace qv::platform {
namespace {

QVILLogHandler installedHandler = nullptr;

const char* programName() {
  const char* name = program_invocation_short_name;
  return name != nullptr ? name : "";
}

// The default sink: "YYYY-MM-DD HH:MM:SS.mmm program[pid:tid] message" on standard error.
void writeToStandardError(const char* line) {
  timeval now{};
  gettimeofday(&now, nullptr);
  tm local{};
  localtime_r(&now.tv_sec, &local);
  char stamp[32];
  strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &local);
  fprintf(stderr, "%s.%03ld %s[%d:%ld] %s\n", stamp, static_cast<long>(now.tv_usec / 1000), programName(),
          static_cast<int>(getpid()), static_cast<long>(gettid()), line);
}

}  // namespace

void logLine(const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list copy;
  va_copy(copy, args);
  const int length = vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string line(length > 0 ? static_cast<size_t>(length) : 0, '\0');
  if (length > 0) vsnprintf(line.data(), line.size() + 1, format, args);
  va_end(args);
  (installedHandler != nullptr ? installedHandler : writeToStandardError)(line.c_str());
}

}  // namespace qv::platform

extern "C" QV_API void QVILSetLogHandler(QVILLogHandler handler) { qv::platform::installedHandler = handler; }
