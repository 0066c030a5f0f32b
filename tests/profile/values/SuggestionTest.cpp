#include "profile/values/Suggestion.h"

#include <gtest/gtest.h>

#include <array>

namespace tarnwell::profile {
namespace {

constexpr std::array<std::string_view, 4> words = {"apply", "autohide-delay", "undo", "list"};

TEST(SuggestionTest, aWordMistypedIsFound) {
  EXPECT_EQ(closest("aply", words), "apply");
  EXPECT_EQ(closest("aplpy", words), "apply");
  EXPECT_EQ(closest("autohide-dely", words), "autohide-delay");
  EXPECT_EQ(closest("autohide_delai", words), "autohide-delay");
  EXPECT_EQ(closest("lists", words), "list");
}

TEST(SuggestionTest, nothingIsSuggestedForAWordOfItsOwn) {
  for (const char* word : {"", "u", "at", "help", "autohide", "autohideXdelXX", "undoundoundo"}) {
    EXPECT_EQ(closest(word, words), "") << word;
  }
}

}  // namespace
}  // namespace tarnwell::profile
