#include "support/log_capture.h"

#include "qvimage/QVILTypes.h"

namespace qvtest {
namespace {
std::vector<std::string> captured;
void capture(const char* line) { captured.emplace_back(line); }
}  // namespace

LogCapture::LogCapture() {
  captured.clear();
  QVILSetLogHandler(capture);
}

LogCapture::~LogCapture() { QVILSetLogHandler(nullptr); }

const std::vector<std::string>& LogCapture::lines() const { return captured; }

}  // namespace qvtest
