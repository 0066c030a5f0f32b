#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/socket.h>

#include <array>
#include <csignal>
#include <fstream>

#include "fixtures/DockCommands.h"
#include "fixtures/WaitFor.h"
#include "standin/MacSystem.h"
#include "standin/dock/DockBehavior.h"
#include "standin/dock/DockLog.h"
#include "system/processes/Process.h"

namespace tarnwell::standin {
namespace {

using fixtures::resetCommands;
using fixtures::savedCommands;
using fixtures::waitFor;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;

// What a Dock says of the settings it finds now.
std::string settingsLine(const MacSystem& system) {
  std::filesystem::remove(system.dockLog());
  const Process dock({DOCK_PATH}, system.environment());
  EXPECT_TRUE(waitFor([&] { return fileContent(system.dockLog()).ends_with('\n'); }));
  return fileContent(system.dockLog());
}

// Each key with what `print` makes of its value, `between` two.
template <class Print>
std::string joined(const fixtures::Commands& writes, const std::string& between, const Print& print) {
  std::string text;
  for (const auto& [key, value] : fixtures::outcomeOf(writes)) {
    text += (text.empty() ? "" : between) + print(key, value);
  }
  return text;
}

std::string logged(const fixtures::Commands& writes) {
  return joined(writes, " ", [](const auto& key, const auto& value) { return key + "=" + value; });
}

// As `Dock --list` prints them.
std::string listed(const fixtures::Commands& writes) {
  return joined(writes, "\n", [](const auto& key, const auto& value) { return key + " " + value; }) + "\n";
}

TEST(DockTest, logsEverySettingInOneLine) {
  const MacSystem system;
  const std::string absent = joined(resetCommands(), " ", [](const auto& key, const auto&) { return key + "=absent"; });
  EXPECT_THAT(settingsLine(system), MatchesRegex("20[0-9-]+ [0-9:.]+ Dock\\[[0-9]+\\] " + absent + "\n"));
  system.runWrites(savedCommands());
  EXPECT_THAT(settingsLine(system), EndsWith("] " + logged(savedCommands()) + "\n"));
  system.runWrites(resetCommands());
  EXPECT_THAT(settingsLine(system), EndsWith("] " + logged(resetCommands()) + "\n"));
}

TEST(DockTest, saysSoWhenATypeIsWrong) {
  const MacSystem system;
  system.shell(R"(w() { "$D" write com.apple.dock "$@"; }; w autohide-delay -string 0.2; w mineffect -int 2;)"
               "w showhidden -int 1; w static-only -array a");
  const std::string line = settingsLine(system);
  EXPECT_THAT(line, HasSubstr("] autohide-delay=wrong-type(string) autohide-time-modifier=absent "));
  EXPECT_THAT(
      line, HasSubstr(" mineffect=wrong-type(integer) showhidden=wrong-type(integer) static-only=wrong-type(array) "));
}

TEST(DockTest, staysOneLineWhateverTheStoreHolds) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "mineffect", "a\nb"});
  EXPECT_THAT(settingsLine(system), HasSubstr(" mineffect=\"a\\nb\" "));
  system.store("garbage");
  EXPECT_THAT(settingsLine(system), HasSubstr("autohide-delay=unreadable "));
}

TEST(DockTest, theLogIsSetAsideOnceItIsFull) {
  const MacSystem system;
  settingsLine(system);
  const std::string full(static_cast<std::size_t>(dockLogLimit), 'x');
  std::ofstream(system.dockLog()) << full;
  const Process dock({DOCK_PATH}, system.environment());
  EXPECT_TRUE(waitFor([&] { return std::filesystem::exists(system.dockLog() + ".1"); }));
  EXPECT_TRUE(waitFor([&] { return fileContent(system.dockLog()).ends_with('\n'); }));
  EXPECT_LT(fileContent(system.dockLog()).size(), 1000U);
  EXPECT_EQ(fileContent(system.dockLog() + ".1"), full);
}

TEST(DockTest, theLogIsFullOnceALineWouldGoBeyondItsLimit) {
  const MacSystem system;
  const std::string folder = std::filesystem::path(system.dockLog()).parent_path();
  ASSERT_TRUE(appendToDockLog(folder, "first"));
  EXPECT_EQ(std::filesystem::status(system.dockLog()).permissions(), std::filesystem::perms(0600));
  std::filesystem::resize_file(system.dockLog(), static_cast<std::uintmax_t>(dockLogLimit) - 5);
  EXPECT_TRUE(appendToDockLog(folder, "1234"));
  EXPECT_FALSE(std::filesystem::exists(system.dockLog() + ".1"));
  EXPECT_EQ(std::filesystem::file_size(system.dockLog()), static_cast<std::uintmax_t>(dockLogLimit));
  EXPECT_TRUE(appendToDockLog(folder, ""));
  EXPECT_TRUE(fileContent(system.dockLog() + ".1").ends_with("1234\n"));
  EXPECT_EQ(fileContent(system.dockLog()), "\n");
}

TEST(DockTest, aLogThatCannotBeSetAsideIsNotWrittenOn) {
  const MacSystem system;
  const std::string folder = std::filesystem::path(system.dockLog()).parent_path();
  std::filesystem::create_directories(system.dockLog() + ".1/below");
  std::ofstream(system.dockLog()) << std::string(static_cast<std::size_t>(dockLogLimit), 'x');
  EXPECT_FALSE(appendToDockLog(folder, "line"));
  EXPECT_EQ(std::filesystem::file_size(system.dockLog()), static_cast<std::uintmax_t>(dockLogLimit));
  EXPECT_FALSE(appendToDockLog(system.dockLog(), "line"));
}

TEST(DockTest, isFoundByItsNameAndEndsOnTermination) {
  const MacSystem system;
  // The parent process may ignore the signal that killall sends.
  Process dock({"/bin/sh", "-c", std::string("trap '' TERM; exec ") + DOCK_PATH}, system.environment());
  EXPECT_TRUE(waitFor([&] { return !fileContent(system.dockLog()).empty(); }));
  EXPECT_EQ(fileContent("/proc/" + std::to_string(dock.id()) + "/comm"), "Dock\n");
  dock.send(SIGTERM);
  EXPECT_EQ(dock.wait().signal, SIGTERM);
}

TEST(DockTest, livesOnWithoutALog) {
  const MacSystem system;
  std::filesystem::create_directory(system.root());
  system.folder().write("root/Library", "");
  const Process dock({DOCK_PATH}, system.environment());
  EXPECT_TRUE(waitFor([&] { return dock.errors().find("cannot write its log") != std::string::npos; }));
  EXPECT_TRUE(isRunning(dock.id()));
}

std::string list(const MacSystem& system) { return run({DOCK_PATH, "--list"}, system.environment()).output; }

TEST(DockTest, listsTheDefaultsOfWhatIsNotSet) {
  const MacSystem system;
  EXPECT_EQ(list(system), listed(resetCommands()));
  EXPECT_FALSE(std::filesystem::exists(system.dockLog()));
}

TEST(DockTest, listsWhatIsSet) {
  const MacSystem system;
  system.runWrites(savedCommands());
  EXPECT_EQ(list(system), listed(savedCommands()));
}

TEST(DockTest, takesOtherWritingsOfANumberAndAnEffect) {
  const MacSystem system;
  system.shell(
      R"("$D" write com.apple.dock autohide-time-modifier -float 0; "$D" write com.apple.dock mineffect Suck)");
  EXPECT_THAT(list(system), AllOf(HasSubstr("autohide-time-modifier 0\n"), HasSubstr("mineffect suck\n")));
}

TEST(DockTest, goesByTheDefaultWhereATypeIsWrongOrTheStoreIsDamaged) {
  const MacSystem system;
  const std::string defaults = list(system);
  system.shell(R"(w() { "$D" write com.apple.dock "$@"; }; w autohide-delay -string 0.9; w mineffect -int 2;)"
               "w showhidden -int 1; w static-only -array a; w single-app -string true; w scroll-to-open -float 1");
  EXPECT_EQ(list(system), defaults);
  system.store("garbage");
  EXPECT_EQ(list(system), defaults);
}

TEST(DockTest, listsHowLongItReallyTakes) {
  const MacSystem system;
  for (const auto& [stored, effective] :
       {std::pair{"-1", "0"}, {"-0", "0"}, {"inf", "0"}, {"nan", "0"}, {"7200", "3600"}}) {
    system.store(std::string("<plist version=\"1.0\"><dict><key>autohide-delay</key><real>") + stored +
                 "</real></dict></plist>");
    EXPECT_THAT(list(system), HasSubstr(std::string("autohide-delay ") + effective + "\n")) << stored;
  }
}

TEST(DockTest, goesByWhatItHasListed) {
  EXPECT_EQ(listText(listedBehavior(listed(savedCommands()))), listed(savedCommands()));
  EXPECT_EQ(listedBehavior(listText({})), DockBehavior());
  for (const char* text : {"", "autohide-delay", "autohide-delay \n", "autohide-delay x\nmineffect \n"}) {
    EXPECT_EQ(listedBehavior(text), DockBehavior()) << text;
  }
}

TEST(DockTest, tellsTheUiThatItIsGivenWhatItGoesByAndEndsWithIt) {
  const MacSystem system;
  system.runWrites(savedCommands());
  std::array<int, 2> ends{};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
  system::Descriptor ui(ends[0]);
  system::Descriptor given(ends[1]);
  auto dock = system::Process::start(
      {.words = {DOCK_PATH, "--ui"}, .environment = system.environment(), .extra = given.number()});
  ASSERT_TRUE(dock);
  given.close();
  EXPECT_EQ(ui.readPart(), listed(savedCommands()));
  ui.close();
  EXPECT_EQ(dock->wait().number, 1);
}

TEST(DockTest, anUnknownEffectIsTheGenie) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "mineffect", "whirl"});
  EXPECT_THAT(list(system), HasSubstr("mineffect genie\n"));
}

TEST(DockTest, staysWithoutAUiWhereThereIsNoneToStart) {
  const MacSystem system;
  const std::string lonely = (system.folder() / "Dock").string();
  std::filesystem::copy_file(DOCK_PATH, lonely);
  Words environment = system.environment();
  environment.emplace_back("DISPLAY=:64999");
  const Process dock({lonely}, environment);
  EXPECT_TRUE(waitFor([&] { return dock.errors().find("cannot start") != std::string::npos; }));
  EXPECT_TRUE(isRunning(dock.id()));
}

TEST(DockTest, answersItsCommandLine) {
  const Outcome help = run({DOCK_PATH, "--help"}, {});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, HasSubstr("Usage: Dock"));
  const Outcome unknown = run({DOCK_PATH, "--frobnicate"}, {});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.errors, HasSubstr("unknown argument --frobnicate\nUsage: Dock"));
  EXPECT_EQ(run({DOCK_PATH, "--list", "--no-window"}, {}).status, 2);
  EXPECT_EQ(run({DOCK_PATH}, {}).status, 1);
  EXPECT_EQ(run({DOCK_PATH, "--list"}, {}).status, 1);
}

}  // namespace
}  // namespace tarnwell::standin
