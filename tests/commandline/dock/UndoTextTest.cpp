#include "commandline/dock/UndoText.h"

#include <gtest/gtest.h>

#include "commandline/dock/Element.h"

namespace tarnwell::commandline {
namespace {

/// A string whose element has as many bytes.
core::StoredValue stringOf(std::size_t bytes) {
  return std::string(bytes - elementOf(core::StoredValue(std::string())).size(), 'x');
}

TEST(UndoText, keepsWhatFitsOnACommandLineAndNoMore) {
  EXPECT_TRUE(canBeKept(stringOf(16384)));
  EXPECT_FALSE(canBeKept(stringOf(16385)));
  EXPECT_TRUE(canBeKept(core::Absent()));
}

}  // namespace
}  // namespace tarnwell::commandline
