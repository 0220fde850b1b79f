#include "support/mem_main.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "support/env_out.h"

namespace {

std::vector<std::string> g_errors;

struct error_catcher {
  error_catcher() {
    g_errors.clear();
    env.set(
        nullptr, nullptr, [](void*, const char* t) { g_errors.emplace_back(t); }, nullptr, nullptr, nullptr,
        nullptr, nullptr, nullptr, nullptr, nullptr);
    Tvx_env_main::set_env(&env);
  }
  ~error_catcher() { Tvx_env_main::set_env(nullptr); }
  Tvx_env_out env;
};

TEST(MemMain, CallocGivesZeroedBlock) {
  auto* p = static_cast<unsigned char*>(Tvx_mem_main::mem_calloc(16, 4));
  ASSERT_NE(p, nullptr);
  for (int i = 0; i < 64; ++i) EXPECT_EQ(p[i], 0);
  Tvx_mem_main::free_and_null(p);
  EXPECT_EQ(p, nullptr);
  Tvx_mem_main::free_and_null(p);  // null stays null
}

TEST(MemMain, ReallocGrowsKeepsContentAndSizeZeroFrees) {
  error_catcher catcher;
  auto* p = static_cast<char*>(Tvx_mem_main::mem_realloc(nullptr, 4));
  ASSERT_NE(p, nullptr);
  std::memcpy(p, "abc", 4);
  p = static_cast<char*>(Tvx_mem_main::mem_realloc(p, 1000));
  ASSERT_NE(p, nullptr);
  EXPECT_STREQ(p, "abc");
  EXPECT_EQ(Tvx_mem_main::mem_realloc(p, 0), nullptr);
  EXPECT_TRUE(g_errors.empty());
}

TEST(MemMain, ErrAllocReportsTheSize) {
  error_catcher catcher;
  Tvx_mem_main::err_alloc(1234);
  EXPECT_EQ(g_errors, std::vector<std::string>{"Not enough memory. Size to alloc: 1234"});
}

TEST(MemMain, FailedReallocReportsAndGivesNull) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer's allocator aborts on an impossible size instead of giving null";
#endif
  error_catcher catcher;
  void* old = std::malloc(8);
  EXPECT_EQ(Tvx_mem_main::mem_realloc(old, SIZE_MAX / 2), nullptr);
  std::free(old);
  EXPECT_EQ(Tvx_mem_main::mem_calloc(SIZE_MAX / 4, 8), nullptr);
  ASSERT_EQ(g_errors.size(), 2u);
  EXPECT_EQ(g_errors[0].rfind("Not enough memory. Size to alloc: ", 0), 0u);
}

}  // namespace
