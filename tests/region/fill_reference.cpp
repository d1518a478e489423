#include "region/fill_reference.h"

#include <algorithm>
#include <map>

namespace qvtest {
namespace {

struct Record {
  int row, left, right, parentLeft, parentRight, direction;
};

class Model {
 public:
  Model(std::vector<uint8_t> image, int width, int height, int low, int high, uint8_t newVal)
      : pixels_(std::move(image)), width_(width), height_(height), low_(low), high_(high), newVal_(newVal) {}

  uint8_t& at(int x, int y) { return pixels_[static_cast<size_t>(y) * width_ + x]; }
  bool inRange(int x, int y) { return low_ <= at(x, y) && at(x, y) <= high_; }

  // The lane test of the 16-pixel walk: bytes, low and high all read as signed.
  bool laneFails(int x, int y) {
    const auto value = static_cast<int8_t>(at(x, y));
    return value > static_cast<int8_t>(high_) || static_cast<int8_t>(low_) > value;
  }

  // The span grown from (x, y). Ends are found first on the unpainted row, then painted.
  void grow(int x, int y, bool mayGoWide, int scanEnd, int* left, int* right) {
    int l = x;
    while (l - 1 >= 0 && inRange(l - 1, y)) --l;
    int r = x;
    if (mayGoWide && scanEnd - x >= 16 && x <= width_ - 17) {
      ++wideWalks;
      bool stopped = false;
      int blockStart = x + 1;
      while (!stopped && blockStart + 16 <= width_) {
        for (int lane = 0; lane < 16; ++lane)
          if (laneFails(blockStart + lane, y)) {
            r = blockStart + lane - 1;
            stopped = true;
            break;
          }
        if (!stopped) blockStart += 16;
      }
      if (!stopped) {
        r = blockStart - 1;
        while (r + 1 < width_ && inRange(r + 1, y)) ++r;
      }
    } else {
      while (r + 1 < width_ && inRange(r + 1, y)) ++r;
    }
    for (int c = l; c <= r; ++c) at(c, y) = newVal_;
    *left = l;
    *right = r;
  }

  void push(const Record& record) {
    stack_[top_] = record;
    ++top_;
    if (top_ == capacity) {
      top_ = 0;
      ++wraps;
    }
  }

  void scan(int y, int from, int limit, const Record& parent, int direction) {
    int x = from;
    while (x < limit) {
      if (!inRange(x, y)) {
        x = x + 1;
        continue;
      }
      int l = 0, r = 0;
      grow(x, y, true, parent.right, &l, &r);
      area += r - l + 1;
      push({y, l, r, parent.left, parent.right, direction});
      x = r + 2;
    }
  }

  void run(int seedX, int seedY, long long maxRecords) {
    int l = 0, r = 0;
    grow(seedX, seedY, false, 0, &l, &r);
    area = r - l + 1;
    minX = l, maxX = r, minY = seedY, maxY = seedY;
    if (height_ == 1) return;
    push({seedY, l, r, r + 1, r, seedY == height_ - 1 ? -1 : 1});
    if (capacity == 1) return;
    top_ = 1;
    do {
      if (recordsWorked == maxRecords) {
        finished = false;
        return;
      }
      --top_;
      const Record current = stack_[top_];
      ++recordsWorked;
      minX = std::min(minX, current.left);
      maxX = std::max(maxX, current.right);
      minY = std::min(minY, current.row);
      maxY = std::max(maxY, current.row);
      const int ahead = current.row - current.direction;
      if (ahead >= 0 && ahead < height_) scan(ahead, current.left, current.right + 1, current, current.direction);
      const int back = current.row + current.direction;
      scan(back, current.left, current.parentLeft, current, -current.direction);
      scan(back, current.parentRight + 1, current.right + 1, current, -current.direction);
    } while (top_ != 0);
  }

  std::vector<uint8_t> pixels_;
  int width_, height_, low_, high_;
  uint8_t newVal_;
  int capacity = 0;
  std::map<int, Record> stack_;
  int top_ = 0;
  long long area = 0, recordsWorked = 0;
  int wraps = 0, wideWalks = 0;
  bool finished = true;
  int minX = 0, maxX = 0, minY = 0, maxY = 0;
};

}  // namespace

ReferenceFill referenceFill(std::vector<uint8_t> image, int width, int height, int seedX, int seedY, uint8_t newVal,
                            uint8_t minDelta, uint8_t maxDelta, long long maxRecords) {
  ReferenceFill result;
  const int seedValue = image[static_cast<size_t>(seedY) * width + seedX];
  if (seedValue == newVal) {
    result.image = std::move(image);
    return result;
  }
  const int low = std::max(seedValue - minDelta, 0);
  const int high = std::min(seedValue + maxDelta, 255);
  Model model(std::move(image), width, height, low, high, newVal);
  model.capacity = width * height / 4;
  model.run(seedX, seedY, maxRecords);
  result.image = model.pixels_;
  result.area = static_cast<double>(model.area);
  result.box = {model.minX, model.minY, model.maxX - model.minX + 1, model.maxY - model.minY + 1};
  result.recordsWorked = model.recordsWorked;
  result.wraps = model.wraps;
  result.wideWalks = model.wideWalks;
  result.finished = model.finished;
  return result;
}

}  // namespace qvtest
