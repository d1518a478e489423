#ifndef QV_BENCH_SUPPORT_H
#define QV_BENCH_SUPPORT_H

// Shared pieces of the benchmark programs: tier forcing by argument and aligned buffers.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace qvbench {

struct Tier {
  const char* name;
  int cpuCode;
};

// m7, u8, y8, e9, indexed 0 to 3 as benchmark arguments.
const Tier& tierAt(int64_t index);
// Forces the tier of state.range(argumentIndex) and labels the run with its name.
void forceTier(benchmark::State& state, int argumentIndex = 0);

// A 64-byte aligned block filled with a pattern, freed on destruction.
struct AlignedBlock {
  explicit AlignedBlock(size_t bytes, uint8_t seed = 1);
  uint8_t* data() const { return bytes_.get(); }
  size_t size() const { return size_; }

 private:
  struct Free {
    void operator()(uint8_t* p) const;
  };
  std::unique_ptr<uint8_t, Free> bytes_;
  size_t size_;
};

// Sets bytes-per-second from the bytes one iteration moves.
void countBytes(benchmark::State& state, size_t bytesPerIteration);

}  // namespace qvbench

#endif
