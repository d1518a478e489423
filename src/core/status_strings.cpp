// The text of every status code.

#include <array>

#include "qvimage/ippcore.h"

namespace {

struct StatusRow {
  IppStatus code;
  const char* text;
};

constexpr StatusRow kNamedRows[] = {
#define QV_STATUS_TEXT_ROW(name, code, sentence) {code, #name ": " sentence},
    QV_STATUS_ROWS(QV_STATUS_TEXT_ROW)
#undef QV_STATUS_TEXT_ROW
};

constexpr StatusRow kUnnamedRows[] = {
    {-9702, "No shared libraries were found in the Waterfall procedure"},
    {-9701, "No DLLs were found in the Waterfall procedure"},
    {-9700, "Error at loading of %s library"},
};

constexpr size_t kRowCount = std::size(kNamedRows) + std::size(kUnnamedRows);

// The named and unnamed rows merged into one table sorted by code.
constexpr std::array<StatusRow, kRowCount> mergeRows() {
  std::array<StatusRow, kRowCount> rows{};
  size_t named = 0;
  size_t unnamed = 0;
  for (StatusRow& row : rows) {
    const bool takeUnnamed = unnamed < std::size(kUnnamedRows) &&
                             (named == std::size(kNamedRows) || kUnnamedRows[unnamed].code < kNamedRows[named].code);
    row = takeUnnamed ? kUnnamedRows[unnamed++] : kNamedRows[named++];
  }
  return rows;
}

constexpr std::array<StatusRow, kRowCount> ippMsg = mergeRows();
static_assert(kRowCount == 273, "the status table has 273 rows");

const char* findText(IppStatus status) {
  for (const StatusRow& row : ippMsg)
    if (row.code == status) return row.text;
  return nullptr;
}

}  // namespace

extern "C" QV_API const char* ippGetStatusString(IppStatus status) {
  const char* text = findText(status);
  return text != nullptr ? text : findText(ippStsUnknownStatusCodeErr);
}
