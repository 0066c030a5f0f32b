#include "updater/signature/Base64.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "fixtures/OwnMemory.h"

namespace tarnwell::updater {
namespace {

TEST(Base64, leavesNoCopyOfWhatItReadInMemory) {
  // It stands where the program cannot write, and fits into no register. Allocators write over the beginning of what is
  // freed.
  constexpr std::string_view text =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::string_view end = text.substr(16);
  const auto memory = std::make_unique<fixtures::OwnMemory>();
  std::array<unsigned char, 96> bytes = {};
  ASSERT_TRUE(decodeBase64(text, bytes));
  EXPECT_FALSE(memory->holds(end));
  const std::string copy(text);
  EXPECT_TRUE(memory->holds(end));
}

}  // namespace
}  // namespace tarnwell::updater
