#include "resize/allocation_log.h"

#include <algorithm>
#include <cstdlib>

#include "qvimage/ippcore.h"

namespace resizetest {
namespace {

constexpr size_t kOverhead = 72;  // what ippMalloc adds to a request

std::vector<AllocationLog::Event> watched;
int refused = -1;
int requestCount = 0;
void* (*savedMalloc)(size_t) = nullptr;
void (*savedFree)(void*) = nullptr;

void* watchedMalloc(size_t bytes) {
  const int number = requestCount++;
  void* raw = number == refused ? nullptr : std::malloc(bytes);
  if (raw != nullptr) watched.push_back({true, bytes - kOverhead, raw});
  return raw;
}

void watchedFree(void* raw) {
  watched.push_back({false, 0, raw});
  std::free(raw);
}

}  // namespace

AllocationLog::AllocationLog() {
  watched.clear();
  refused = -1;
  requestCount = 0;
  savedMalloc = i_malloc;
  savedFree = i_free;
  i_malloc = watchedMalloc;
  i_free = watchedFree;
}

AllocationLog::~AllocationLog() {
  i_malloc = savedMalloc;
  i_free = savedFree;
  for (const Event& e : watched) {
    if (!e.allocation) continue;
    const bool released = std::any_of(watched.begin(), watched.end(),
                                      [&](const Event& other) { return !other.allocation && other.raw == e.raw; });
    if (!released) std::free(e.raw);
  }
}

void AllocationLog::refuseRequest(int n) { refused = n; }

const std::vector<AllocationLog::Event>& AllocationLog::events() const { return watched; }

std::vector<size_t> AllocationLog::requests() const {
  std::vector<size_t> sizes;
  for (const Event& e : watched)
    if (e.allocation) sizes.push_back(e.bytes);
  return sizes;
}

size_t AllocationLog::held() const {
  size_t count = 0;
  for (const Event& e : watched) count += e.allocation ? 1 : 0;
  for (const Event& e : watched) count -= e.allocation ? 0 : 1;
  return count;
}

}  // namespace resizetest
