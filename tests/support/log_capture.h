#ifndef QV_TESTS_SUPPORT_LOG_CAPTURE_H
#define QV_TESTS_SUPPORT_LOG_CAPTURE_H

#include <string>
#include <vector>

namespace qvtest {

// Collects the library's log lines for the life of the object.
class LogCapture {
 public:
  LogCapture();
  ~LogCapture();
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;
  const std::vector<std::string>& lines() const;
};

}  // namespace qvtest

#endif
