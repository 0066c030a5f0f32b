#include "core/Preference.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "fakes/RecordingCommandRunner.h"

namespace tarnwell::core {
namespace {

template <class T>
void expectCommandsOfItsKey(const Preference<T>& preference) {
  fakes::RecordingCommandRunner runner;
  const Catalogue catalogue(runner);
  (catalogue.*preference.read)();
  preference.write(catalogue, T());
  const std::string key(preference.key);
  EXPECT_EQ(runner.commands.at(0), "defaults read com.apple.dock " + key);
  EXPECT_TRUE(runner.commands.at(1).starts_with("defaults write com.apple.dock " + key + " -")) << runner.commands[1];
}

TEST(PreferenceTest, eachIsReadAndWrittenByItsKey) {
  std::apply([](const auto&... row) { (expectCommandsOfItsKey(row), ...); }, preferences);
}

}  // namespace
}  // namespace tarnwell::core
