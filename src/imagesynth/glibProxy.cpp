// Fixed-capacity arrays and the process-wide random generator, behind a narrow interface so that
// the engine depends on nothing else.

#include <cstdlib>
#include <cstring>

#include "imagesynth/synthAssert.h"
#include "qvimage/imageSynth.h"

extern "C" {

// The first two arguments are accepted for the interface's sake and ignored.
SArray* s_array_sized_new(int32_t, int32_t, uint32_t elementSize, uint32_t reservedCount) {
  auto* array = static_cast<SArray*>(malloc(sizeof(SArray)));
  array->data = static_cast<unsigned char*>(calloc(reservedCount, elementSize));
  array->len = 0;
  array->capacity = reservedCount;
  array->elementSize = elementSize;
  return array;
}

// Appends one element whatever count says; the caller has reserved room for it.
SArray* s_array_append_vals(SArray* array, const void* value, uint32_t) {
  memcpy(array->data + static_cast<size_t>(array->len) * array->elementSize, value, array->elementSize);
  array->len += 1;
  return array;
}

void s_array_sort(SArray* array, SComparator comparator) {
  qsort(array->data, array->len, array->elementSize, comparator);
}

void s_array_free(SArray* array, int32_t) {
  qv::synth::synthAssert(array->data != nullptr, "array->data");
  free(array->data);
  free(array);
}

// The state lives in the process: the handle is always null.
void* s_rand_new_with_seed(uint32_t seed) {
  srand(seed);
  return nullptr;
}

// A number in [low, high) taken from the high bits of rand(); a range ending at 0 draws nothing.
uint32_t s_rand_int_range(void*, uint32_t low, uint32_t high) {
  if (high == 0) return 0;
  const auto r = static_cast<uint32_t>(rand());
  return r / (0x7fffffffu / (high - low) + 1u) + low;
}

}  // extern "C"
