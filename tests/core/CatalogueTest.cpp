#include "core/Catalogue.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "fakes/RecordingCommandRunner.h"
#include "fixtures/StandardOutputCapture.h"

namespace tarnwell::core {
namespace {

class CatalogueTest : public testing::Test {
 protected:
  void answer(const std::string& key, const std::string& output) {
    runner.answers["defaults read com.apple.dock " + key] = output;
  }

  fakes::RecordingCommandRunner runner;
  Catalogue catalogue{runner};
};

TEST_F(CatalogueTest, eachWriterStartsItsCommand) {
  catalogue.writeFloat("defaults write com.apple.dock autohide-delay -float ", 1.0);
  catalogue.writeFloat("defaults write com.apple.dock autohide-time-modifier -float ", 0.00001);
  catalogue.writeBool("defaults write com.apple.dock scroll-to-open -bool ", true);
  catalogue.writeMinEffect(MinEffect::suck);
  catalogue.writeBool("defaults write com.apple.dock showhidden -bool ", true);
  catalogue.writeBool("defaults write com.apple.dock static-only -bool ", false);
  catalogue.writeSingleApp(true);
  const std::vector<std::string> expected = {
      "defaults write com.apple.dock autohide-delay -float 1.0; killall Dock",
      "defaults write com.apple.dock autohide-time-modifier -float 1e-05; killall Dock",
      "defaults write com.apple.dock scroll-to-open -bool true; killall Dock",
      "defaults write com.apple.dock mineffect -string suck && killall Dock",
      "defaults write com.apple.dock showhidden -bool true; killall Dock",
      "defaults write com.apple.dock static-only -bool false; killall Dock",
      "defaults write com.apple.dock single-app -bool true; killall Dock"};
  EXPECT_EQ(runner.detached, expected);
  EXPECT_TRUE(runner.captured.empty());
}

TEST_F(CatalogueTest, anyPrefixBeginsACommand) {
  catalogue.writeFloat("defaults write com.apple.dock tilesize -float ", 48);
  catalogue.writeBool("defaults write com.apple.dock autohide -bool ", true);
  catalogue.writeBool("", false);
  const std::vector<std::string> expected = {"defaults write com.apple.dock tilesize -float 48.0; killall Dock",
                                             "defaults write com.apple.dock autohide -bool true; killall Dock",
                                             "false; killall Dock"};
  EXPECT_EQ(runner.detached, expected);
}

TEST_F(CatalogueTest, floatsReadAsTheTableSays) {
  const std::vector<std::pair<std::string, double>> table = {
      {"0.2\n", 0.2},   {" 0.2\n", 0.0},  {"0.2 \n", 0.0}, {"", 0.0},   {"1\n", 1.0},
      {"0.\n5\n", 0.5}, {"0.5\r\n", 0.0}, {"0,5\n", 0.0},  {"\n", 0.0}, {"greeting\n0.5\n", 0.0}};
  for (const auto& [output, value] : table) {
    answer("autohide-delay", output);
    answer("autohide-time-modifier", output);
    EXPECT_EQ(catalogue.readDelaySpeed(), value) << output;
    EXPECT_EQ(catalogue.readAnimationSpeed(), value) << output;
  }
}

TEST_F(CatalogueTest, booleansReadAsTheTableSays) {
  const std::vector<std::pair<std::string, bool>> table = {
      {"1\n", true}, {"\n1", true}, {"0\n", false}, {"true\n", false}, {"YES\n", false}, {"", false}, {"1\r\n", false}};
  for (const auto& [output, value] : table) {
    for (const char* key : {"scroll-to-open", "showhidden", "static-only", "single-app"}) {
      answer(key, output);
    }
    EXPECT_EQ(catalogue.readScrollToExpose(), value) << output;
    EXPECT_EQ(catalogue.readShowHidden(), value) << output;
    EXPECT_EQ(catalogue.readActiveAppsOnly(), value) << output;
    EXPECT_EQ(catalogue.readSingleAppMode(), value) << output;
  }
}

TEST_F(CatalogueTest, effectsReadAsTheTableSays) {
  const std::vector<std::pair<std::string, MinEffect>> table = {
      {"Suck\n", MinEffect::suck},     {"scale\n", MinEffect::scale},        {"genie\n", MinEffect::genie},
      {"scale\r\n", MinEffect::genie}, {"Genie Effect\n", MinEffect::genie}, {"", MinEffect::genie},
      {"sca\nle\n", MinEffect::scale}};
  for (const auto& [output, value] : table) {
    answer("mineffect", output);
    EXPECT_EQ(catalogue.readMinEffect(), value) << output;
  }
}

TEST_F(CatalogueTest, aKeyThatIsNotSetReadsAsItsFallback) {
  EXPECT_EQ(catalogue.readDelaySpeed(), 0.0);
  EXPECT_EQ(catalogue.readAnimationSpeed(), 0.0);
  EXPECT_FALSE(catalogue.readScrollToExpose());
  EXPECT_EQ(catalogue.readMinEffect(), MinEffect::genie);
  EXPECT_FALSE(catalogue.readShowHidden());
  EXPECT_FALSE(catalogue.readActiveAppsOnly());
  EXPECT_FALSE(catalogue.readSingleAppMode());
}

TEST_F(CatalogueTest, threeReadersPrintTheCleanedTextAndFourPrintNothing) {
  answer("autohide-time-modifier", "0.\n5 \n");
  answer("scroll-to-open", "1\n");
  answer("mineffect", "Suck\n");
  const fixtures::StandardOutputCapture output;
  catalogue.readSingleAppMode();
  catalogue.readDelaySpeed();
  catalogue.readAnimationSpeed();
  catalogue.readScrollToExpose();
  catalogue.readMinEffect();
  catalogue.readShowHidden();
  catalogue.readActiveAppsOnly();
  EXPECT_EQ(output.text(), "0.5 \nSCROLL 1\nSuck\n");
}

TEST_F(CatalogueTest, anEmptyAnswerIsPrintedToo) {
  runner.unanswered = "";
  const fixtures::StandardOutputCapture output;
  catalogue.readAnimationSpeed();
  catalogue.readScrollToExpose();
  catalogue.readMinEffect();
  EXPECT_EQ(output.text(), "\nSCROLL \n\n");
}

}  // namespace
}  // namespace tarnwell::core
