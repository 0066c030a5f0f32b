#include "kit/turn/Object.h"

#include <gtest/gtest.h>

#include "kit/Responder.h"

namespace tarnwell::kit {
namespace {

TEST(ObjectTest, doesWhatItRespondsToAndNothingElse) {
  std::vector<std::string> notes;
  Responder responder("target", "act:", notes);
  EXPECT_TRUE(responder.respondsToSelector("act:"));
  EXPECT_FALSE(responder.respondsToSelector("other:"));
  responder.perform("other:", nullptr);
  EXPECT_TRUE(notes.empty());
  responder.perform("act:", &responder);
  EXPECT_EQ(notes, std::vector<std::string>{"target act:"});
  EXPECT_EQ(responder.lastSender(), &responder);
}

}  // namespace
}  // namespace tarnwell::kit
