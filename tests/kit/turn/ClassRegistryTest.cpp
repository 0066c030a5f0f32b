#include "kit/turn/ClassRegistry.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"

namespace tarnwell::kit {
namespace {

class Sample final : public Object {
 public:
  explicit Sample(Application& made) : application(made) {}

  Application& application;
};

const ClassRegistry::Entry entry("Sample",
                                 [](Application& application) { return std::make_shared<Sample>(application); });

TEST(ClassRegistryTest, makesWhatRegisteredItselfByName) {
  host_headless::HeadlessPlatform platform;
  const auto application = Application::create(platform);
  const auto made = std::dynamic_pointer_cast<Sample>(ClassRegistry::make("Sample", *application));
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(&made->application, application.get());
  EXPECT_NE(ClassRegistry::make("Sample", *application), made);
}

TEST(ClassRegistryTest, anUnknownNameMakesNothing) {
  host_headless::HeadlessPlatform platform;
  const auto application = Application::create(platform);
  EXPECT_EQ(ClassRegistry::make("sample", *application), nullptr);
  EXPECT_EQ(ClassRegistry::make("", *application), nullptr);
}

}  // namespace
}  // namespace tarnwell::kit
