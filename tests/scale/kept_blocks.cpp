#include "scale/kept_blocks.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "qvimage/ippcore.h"

namespace scaletest {
namespace {

std::set<void*>& live() {
  static std::set<void*> blocks;
  return blocks;
}

void* keptMalloc(size_t bytes) {
  void* block = std::malloc(bytes);
  if (block != nullptr) live().insert(block);
  return block;
}

void keptFree(void* block) {
  live().erase(block);
  std::free(block);
}

// Installs the hooks before the first test and gives back what is left after the last.
class KeptBlocks : public testing::Environment {
 public:
  void SetUp() override {
    i_malloc = keptMalloc;
    i_free = keptFree;
  }
  void TearDown() override {
    for (void* block : live()) std::free(block);
    live().clear();
  }
};

const testing::Environment* const installed = testing::AddGlobalTestEnvironment(new KeptBlocks);

}  // namespace

size_t blocksHeld() { return live().size(); }

}  // namespace scaletest
