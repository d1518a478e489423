#ifndef QV_TESTS_RESIZE_ALLOCATION_LOG_H
#define QV_TESTS_RESIZE_ALLOCATION_LOG_H

// Watches the library's allocator for the life of the object: every request that reaches the
// i_malloc hook and every block given back through i_free, in order. A chosen request can be
// refused. Blocks still held when the object ends are released then, so that a block that an
// operation keeps by design does not remain behind the test.

#include <cstddef>
#include <vector>

namespace resizetest {

class AllocationLog {
 public:
  struct Event {
    bool allocation;  // false: a release
    size_t bytes;     // what ippMalloc was asked for (the hook's request less its 72 bytes)
    void* raw;        // the hook's address
  };

  AllocationLog();
  ~AllocationLog();
  AllocationLog(const AllocationLog&) = delete;
  AllocationLog& operator=(const AllocationLog&) = delete;

  // Request number n (from 0) answers null.
  void refuseRequest(int n);
  const std::vector<Event>& events() const;
  // The sizes asked for, in order.
  std::vector<size_t> requests() const;
  // Blocks allocated and not given back.
  size_t held() const;
};

}  // namespace resizetest

#endif
