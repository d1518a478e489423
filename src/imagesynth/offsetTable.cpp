#include "imagesynth/offsetTable.h"

#include <cstdlib>
#include <cstring>

namespace qv::synth {
namespace {

constexpr int32_t kFirstRadius = 16;

int64_t distance2(const Point& p) { return static_cast<int64_t>(p.x) * p.x + static_cast<int64_t>(p.y) * p.y; }

// Distance, then the later appended first: greater y, then greater x.
int nearestFirst(const void* a, const void* b) {
  const Point& p = *static_cast<const Point*>(a);
  const Point& q = *static_cast<const Point*>(b);
  const int64_t dp = distance2(p), dq = distance2(q);
  if (dp != dq) return dp < dq ? -1 : 1;
  if (p.y != q.y) return p.y > q.y ? -1 : 1;
  return p.x > q.x ? -1 : (p.x < q.x ? 1 : 0);
}

int64_t farthest2(const OffsetTable& table) {
  const int64_t x = table.width - 1, y = table.height - 1;
  return x * x + y * y;
}

// Every offset of the full list within radius, in the table's order.
void buildDisc(OffsetTable& table, int32_t radius) {
  const int32_t reachX = radius < table.width - 1 ? radius : table.width - 1;
  const int32_t reachY = radius < table.height - 1 ? radius : table.height - 1;
  const int64_t limit = static_cast<int64_t>(radius) * radius;
  const size_t most = static_cast<size_t>(2 * reachX + 1) * static_cast<size_t>(2 * reachY + 1);
  free(table.points);
  table.points = static_cast<Point*>(malloc(sizeof(Point) * most));
  uint32_t count = 0;
  for (int32_t y = -reachY; y <= reachY; ++y) {
    for (int32_t x = -reachX; x <= reachX; ++x) {
      const Point p{x, y};
      if (distance2(p) <= limit) table.points[count++] = p;
    }
  }
  qsort(table.points, count, sizeof(Point), nearestFirst);
  table.count = count;
  table.radius = radius;
}

// The full list as the sort gives it, for sizes whose distances wrap in 32 bits.
void takeFullList(OffsetTable& table, const Map* target, const Map* corpus) {
  SArray* full = nullptr;
  prepareSortedOffsets(target, corpus, &full);
  table.points = static_cast<Point*>(malloc(sizeof(Point) * full->len));
  memcpy(table.points, full->data, sizeof(Point) * full->len);
  table.count = full->len;
  table.radius = 0x7fffffff;
  s_array_free(full, 1);
}

}  // namespace

void prepareOffsetTable(OffsetTable& table, const Map* target, const Map* corpus) {
  table.width = static_cast<int32_t>(target->width < corpus->width ? target->width : corpus->width);
  table.height = static_cast<int32_t>(target->height < corpus->height ? target->height : corpus->height);
  table.total = static_cast<uint32_t>(2 * table.height - 1) * static_cast<uint32_t>(2 * table.width - 1);
  table.points = nullptr;
  if (farthest2(table) > 0x7fffffff) {
    takeFullList(table, target, corpus);
    return;
  }
  buildDisc(table, kFirstRadius);
}

bool extendOffsetTable(OffsetTable& table) {
  if (table.count == table.total) return false;
  const int64_t doubled = static_cast<int64_t>(table.radius) * 2;
  int32_t radius = static_cast<int32_t>(doubled);
  if (doubled * doubled >= farthest2(table)) radius = table.width + table.height;  // the whole list
  buildDisc(table, radius);
  return true;
}

void freeOffsetTable(OffsetTable& table) {
  free(table.points);
  table.points = nullptr;
  table.count = 0;
}

}  // namespace qv::synth
