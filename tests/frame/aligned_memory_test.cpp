// The aligned allocator over its replaceable hooks.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "qvimage/ippcore.h"
#include "support/tiers.h"

// The tiers' own allocators, declared as each tier declares them.
#define QV_TEST_TIER_ALLOCATORS(tier) \
  namespace tier {                    \
  Ipp16s* ippsMalloc_16s(int len);    \
  Ipp32s* ippsMalloc_32s(int len);    \
  Ipp32f* ippsMalloc_32f(int len);    \
  }
QV_TEST_TIER_ALLOCATORS(m7)
QV_TEST_TIER_ALLOCATORS(u8)
QV_TEST_TIER_ALLOCATORS(y8)
QV_TEST_TIER_ALLOCATORS(e9)
#undef QV_TEST_TIER_ALLOCATORS

namespace {

// A replacement allocator that hands out addresses at a chosen distance from 64-byte alignment
// and records what it was asked for.
struct RecordingAllocator {
  static inline std::vector<size_t> requests;
  static inline std::vector<void*> freed;
  static inline size_t misalignment = 0;
  static inline void* lastRaw = nullptr;
  static inline std::vector<void*> blocks;

  static void* allocate(size_t size) {
    requests.push_back(size);
    if (size > (1u << 20)) return nullptr;  // large requests are recorded, not served
    void* block = std::aligned_alloc(64, ((size + misalignment + 63) / 64) * 64);
    blocks.push_back(block);
    lastRaw = static_cast<char*>(block) + misalignment;
    return lastRaw;
  }
  static void release(void* raw) { freed.push_back(raw); }
};

class AlignedMemory : public ::testing::Test {
 protected:
  void SetUp() override {
    RecordingAllocator::requests.clear();
    RecordingAllocator::freed.clear();
    RecordingAllocator::blocks.clear();
    RecordingAllocator::misalignment = 0;
    savedMalloc_ = i_malloc;
    savedFree_ = i_free;
    i_malloc = RecordingAllocator::allocate;
    i_free = RecordingAllocator::release;
  }
  void TearDown() override {
    i_malloc = savedMalloc_;
    i_free = savedFree_;
    for (void* block : RecordingAllocator::blocks) std::free(block);
  }

 private:
  void* (*savedMalloc_)(size_t) = nullptr;
  void (*savedFree_)(void*) = nullptr;
};

TEST(AllocatorHooks, StartAsTheCLibrary) {
  EXPECT_EQ(i_malloc, &malloc);
  EXPECT_EQ(i_calloc, &calloc);
  EXPECT_EQ(i_realloc, &realloc);
  EXPECT_EQ(i_free, &free);
  EXPECT_EQ(i_version, 1);
  EXPECT_EQ(i_min_version, 0);
}

TEST_F(AlignedMemory, ZeroAndNegativeLengthsNeverCallTheAllocator) {
  EXPECT_EQ(ippMalloc(0), nullptr);
  EXPECT_EQ(ippMalloc(-1), nullptr);
  EXPECT_EQ(ippMalloc(INT32_MIN), nullptr);
  EXPECT_TRUE(RecordingAllocator::requests.empty());
}

TEST_F(AlignedMemory, RequestIsLengthPlus72) {
  void* block = ippMalloc(100);
  ASSERT_EQ(RecordingAllocator::requests.size(), 1u);
  EXPECT_EQ(RecordingAllocator::requests[0], 172u);
  ippFree(block);
}

TEST_F(AlignedMemory, RawAddressAlignedTo64GivesABlock64After) {
  RecordingAllocator::misalignment = 0;
  auto* block = static_cast<char*>(ippMalloc(10));
  EXPECT_EQ(block - static_cast<char*>(RecordingAllocator::lastRaw), 64);
  ippFree(block);
}

TEST_F(AlignedMemory, RawAddress8AboveAlignmentGivesABlock56After) {
  RecordingAllocator::misalignment = 8;
  auto* block = static_cast<char*>(ippMalloc(10));
  EXPECT_EQ(block - static_cast<char*>(RecordingAllocator::lastRaw), 56);
  ippFree(block);
}

TEST_F(AlignedMemory, EveryMisalignmentLeaves8To71BytesBeforeTheBlock) {
  for (size_t misalignment = 0; misalignment < 64; ++misalignment) {
    RecordingAllocator::misalignment = misalignment;
    auto* block = static_cast<char*>(ippMalloc(1));
    const ptrdiff_t before = block - static_cast<char*>(RecordingAllocator::lastRaw);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 64, 0u);
    EXPECT_GE(before, 8);
    EXPECT_LE(before, 71);
    void* stored = nullptr;
    std::memcpy(&stored, block - 8, sizeof stored);
    EXPECT_EQ(stored, RecordingAllocator::lastRaw);
    ippFree(block);
    EXPECT_EQ(RecordingAllocator::freed.back(), RecordingAllocator::lastRaw);
  }
}

TEST_F(AlignedMemory, NullFromTheAllocatorGivesNull) {
  i_malloc = [](size_t) -> void* { return nullptr; };
  EXPECT_EQ(ippMalloc(16), nullptr);
}

TEST_F(AlignedMemory, FreeOfNullDoesNothing) {
  ippFree(nullptr);
  ippsFree(nullptr);
  EXPECT_TRUE(RecordingAllocator::freed.empty());
}

TEST_F(AlignedMemory, TypedAllocatorsOnEveryTier) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    RecordingAllocator::requests.clear();
    Ipp8u* bytes = ippsMalloc_8u(10);
    Ipp16u* words = ippsMalloc_16u(10);
    ASSERT_NE(bytes, nullptr);
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(bytes) % 64, 0u);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(words) % 64, 0u);
    ASSERT_EQ(RecordingAllocator::requests.size(), 2u);
    EXPECT_EQ(RecordingAllocator::requests[0], 10u + 72);
    EXPECT_EQ(RecordingAllocator::requests[1], 20u + 72);
    const size_t freedBefore = RecordingAllocator::freed.size();
    ippsFree(bytes);
    ippsFree(words);
    EXPECT_EQ(RecordingAllocator::freed.size(), freedBefore + 2);
    EXPECT_EQ(ippsMalloc_8u(0), nullptr);
    EXPECT_EQ(ippsMalloc_16u(-3), nullptr);
  });
}

TEST_F(AlignedMemory, DoubledCountThatReadsNegativeGivesNull) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    RecordingAllocator::requests.clear();
    EXPECT_EQ(ippsMalloc_16u(0x40000000), nullptr);
    EXPECT_TRUE(RecordingAllocator::requests.empty());
  });
}

TEST_F(AlignedMemory, DoubledCountIsNotTestedForRange) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    RecordingAllocator::requests.clear();
    EXPECT_EQ(ippsMalloc_16u(0x3FFFFFFF), nullptr);  // recorded, then refused by the allocator
    ASSERT_EQ(RecordingAllocator::requests.size(), 1u);
    EXPECT_EQ(RecordingAllocator::requests[0], 0x7FFFFFFEu + 72);
  });
}

// The four-byte allocators exist only inside the tiers; a count of 0x40000001 wraps to 4 bytes.
template <Ipp32f* (*Allocate32f)(int), Ipp32s* (*Allocate32s)(int), Ipp16s* (*Allocate16s)(int)>
void expectUncheckedWrap() {
  RecordingAllocator::requests.clear();
  Ipp32f* floats = Allocate32f(0x40000001);
  Ipp32s* ints = Allocate32s(0x40000002);
  ASSERT_EQ(RecordingAllocator::requests.size(), 2u);
  EXPECT_EQ(RecordingAllocator::requests[0], 4u + 72);
  EXPECT_EQ(RecordingAllocator::requests[1], 8u + 72);
  EXPECT_NE(floats, nullptr);
  ippFree(floats);
  ippFree(ints);
  EXPECT_EQ(Allocate16s(0), nullptr);
}

TEST_F(AlignedMemory, FourByteCountThatWrapsPositiveGivesASmallerBlock) {
  expectUncheckedWrap<m7::ippsMalloc_32f, m7::ippsMalloc_32s, m7::ippsMalloc_16s>();
  expectUncheckedWrap<u8::ippsMalloc_32f, u8::ippsMalloc_32s, u8::ippsMalloc_16s>();
  expectUncheckedWrap<y8::ippsMalloc_32f, y8::ippsMalloc_32s, y8::ippsMalloc_16s>();
  expectUncheckedWrap<e9::ippsMalloc_32f, e9::ippsMalloc_32s, e9::ippsMalloc_16s>();
}

}  // namespace
