#include "kit/turn/NotificationCenter.h"

#include <gtest/gtest.h>

#include <optional>

namespace tarnwell::kit {
namespace {

using Lines = std::vector<std::string>;

TEST(NotificationCenterTest, tellsThoseWhoListenToTheNameInOrder) {
  NotificationCenter center;
  Lines heard;
  const auto first = center.addObserver("a", [&](const auto&) { heard.emplace_back("first"); });
  const auto second = center.addObserver("a", [&](const auto&) { heard.emplace_back("second"); });
  const auto other = center.addObserver("b", [&](const auto&) { heard.emplace_back("other"); });
  center.post({.name = "a"});
  center.post({.name = "unobserved"});
  EXPECT_EQ(heard, (Lines{"first", "second"}));
}

TEST(NotificationCenterTest, handsOverWhatItIsAbout) {
  NotificationCenter center;
  Object subject;
  Object* heard = nullptr;
  const auto subscription = center.addObserver("a", [&](const Notification& note) { heard = note.object; });
  center.post({.name = "a", .object = &subject});
  EXPECT_EQ(heard, &subject);
}

TEST(NotificationCenterTest, anObserverMayLeaveWhileAllAreTold) {
  NotificationCenter center;
  Lines heard;
  Subscription first;
  Subscription third;
  first = center.addObserver("a", [&](const auto&) {
    heard.emplace_back("first");
    first.invalidate();
    third.invalidate();
  });
  const auto second = center.addObserver("a", [&](const auto&) { heard.emplace_back("second"); });
  third = center.addObserver("a", [&](const auto&) { heard.emplace_back("third"); });
  center.post({.name = "a"});
  center.post({.name = "a"});
  EXPECT_EQ(heard, (Lines{"first", "second", "second"}));
}

TEST(NotificationCenterTest, anObserverMayJoinAndPostWhileAllAreTold) {
  NotificationCenter center;
  Lines heard;
  Subscription late;
  const auto first = center.addObserver("a", [&](const auto&) {
    late = center.addObserver("b", [&](const auto&) { heard.emplace_back("late"); });
    center.post({.name = "b"});
  });
  center.post({.name = "a"});
  EXPECT_EQ(heard, Lines{"late"});
}

TEST(NotificationCenterTest, aSubscriptionMayOutliveTheCenter) {
  auto center = std::make_optional<NotificationCenter>();
  auto subscription = center->addObserver("a", [](const auto&) {});
  center.reset();
  subscription.invalidate();
  EXPECT_FALSE(center.has_value());
}

}  // namespace
}  // namespace tarnwell::kit
