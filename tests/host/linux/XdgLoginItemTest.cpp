#include "host/linux/XdgLoginItem.h"

#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "host/linux/DesktopEntry.h"

namespace tarnwell::host_linux {
namespace {

namespace fs = std::filesystem;
using Status = kit::LoginItem::Status;

// Its program is one that is on every system.
constexpr const char* ours =
    "[Desktop Entry]\n"
    "Type=Application\n"
    "Name=Tarnwell\n"
    "Icon=example.tarnwell.Tarnwell\n"
    "Exec=/usr/bin/env --launched-at-login\n";

constexpr const char* editedEntry =
    "# Kept by its user.\n"
    "[Desktop Entry]\n"
    "Type=Application\n"
    "Name=Tarnwell\n"
    "Name[de]=Tarnwell hier\n"
    "Exec=/old/tarnwell\n"
    "X-GNOME-Autostart-Delay=5\n"
    "\n"
    "[Desktop Action settings]\n"
    "Exec=/old/tarnwell settings\n"
    "Hidden=true\n";

XdgLoginItem itemAt(const fs::path& executable) {
  return XdgLoginItem({.id = "example.tarnwell.Tarnwell",
                       .name = "Tarnwell",
                       .executable = executable,
                       .argument = "--launched-at-login"});
}

std::string replaced(std::string text, const std::string& before, const std::string& after) {
  return text.replace(text.find(before), before.size(), after);
}

class XdgLoginItemTest : public testing::Test {
 protected:
  static constexpr const char* entry = "autostart/example.tarnwell.Tarnwell.desktop";

  void write(const std::string& text) {
    fs::create_directories(sandbox / "autostart");
    sandbox.write(entry, text);
  }

  fixtures::Sandbox sandbox;
  fixtures::EnvironmentScope configuration{"XDG_CONFIG_HOME", sandbox.path().string()};
  XdgLoginItem item = itemAt("/usr/bin/env");
};

TEST_F(XdgLoginItemTest, isNotRegisteredAtFirst) {
  EXPECT_EQ(item.status(), Status::notRegistered);
  EXPECT_FALSE(sandbox.holds("autostart"));
}

TEST_F(XdgLoginItemTest, registeringWritesAnEntry) {
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(sandbox.read(entry), ours);
  EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(XdgLoginItemTest, unregisteringRemovesAnEntryThatIsOurs) {
  item.registerItem();
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_FALSE(sandbox.holds(entry));
  EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(XdgLoginItemTest, unregisteringWhatIsNotThereIsNoFailure) {
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_FALSE(sandbox.holds("autostart"));
}

TEST_F(XdgLoginItemTest, anEntryThatIsTooLargeToBeReadIsLeftAlone) {
  std::string large;
  large.resize(1024UL * 1024 + 1, '#');
  write(large);
  for (const auto& error : {item.registerItem(), item.unregisterItem()}) {
    ASSERT_TRUE(error);
    EXPECT_EQ(*error, "cannot read " + (sandbox / entry).string());
  }
  EXPECT_EQ(sandbox.read(entry), large);
}

TEST_F(XdgLoginItemTest, theStatusIsReadFromDiskEachTime) {
  item.registerItem();
  fs::remove(sandbox / entry);
  EXPECT_EQ(item.status(), Status::notRegistered);
  write(ours);
  EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(XdgLoginItemTest, whatSwitchesAnEntryOffCountsAsOff) {
  const std::string head = "[Desktop Entry]\n";
  const std::vector<std::pair<std::string, Status>> table = {
      {ours, Status::enabled},
      {std::string(ours) + "Hidden=true\n", Status::notRegistered},
      {std::string(ours) + "Hidden = true\n", Status::notRegistered},
      {std::string(ours) + "Hidden=false\n", Status::enabled},
      {std::string(ours) + "X-GNOME-Autostart-enabled=false\n", Status::notRegistered},
      {std::string(ours) + "X-GNOME-Autostart-enabled=true\n", Status::enabled},
      {std::string(ours) + "#Hidden=true\n", Status::enabled},
      {std::string(ours) + "[Other]\nHidden=true\n", Status::enabled},
      {head + "Name=Tarnwell\n", Status::notRegistered},
      {head + "Exec=\n", Status::notRegistered},
      {"Exec=/usr/bin/env\n", Status::notRegistered},
      {"", Status::notRegistered}};
  for (const auto& [text, status] : table) {
    write(text);
    EXPECT_EQ(item.status(), status) << text;
  }
}

TEST_F(XdgLoginItemTest, anEntryWhoseProgramHasGoneIsNotFoundAndIsWrittenAnew) {
  sandbox.write("plain", "not to be run");
  const std::string plain = (sandbox / "plain").string();
  for (const std::string& exec :
       {std::string("/old/tarnwell --launched-at-login"),
        std::string("no-such-program /usr/bin/env --launched-at-login"), std::string("\"/old programs/tarnwell\""),
        std::string("\"/usr/bin/env"), std::string("bin/env"), plain, sandbox.path().string()}) {
    write("[Desktop Entry]\nType=Application\nName=Tarnwell\nIcon=example.tarnwell.Tarnwell\nExec=" + exec + "\n");
    EXPECT_EQ(item.status(), Status::notFound) << exec;
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), ours) << exec;
    EXPECT_EQ(item.status(), Status::enabled);
  }
}

TEST_F(XdgLoginItemTest, aProgramIsFoundUnderEachWayOfNamingIt) {
  fs::create_directories(sandbox / "my 100% $x");
  const fs::path program = sandbox / "my 100% $x/program";
  fs::copy_file("/bin/sh", program);
  for (const std::string& exec :
       {*execValue({program.string(), "x"}), std::string("sh -c x"), std::string(" /bin/sh")}) {
    write("[Desktop Entry]\nExec=" + exec + "\n");
    EXPECT_EQ(item.status(), Status::enabled) << exec;
  }
}

TEST_F(XdgLoginItemTest, theStatusFollowsTheProgram) {
  const fs::path program = sandbox / "tarnwell";
  fs::copy_file("/bin/sh", program);
  XdgLoginItem moved = itemAt(program);
  EXPECT_EQ(moved.registerItem(), std::nullopt);
  EXPECT_EQ(moved.status(), Status::enabled);
  fs::remove(program);
  EXPECT_EQ(moved.status(), Status::notFound);
}

TEST_F(XdgLoginItemTest, anEditedEntryIsSwitchedOffAndOnAgain) {
  write(editedEntry);
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_EQ(item.status(), Status::notRegistered);
  EXPECT_EQ(sandbox.read(entry), replaced(editedEntry, "[Desktop Entry]\n", "[Desktop Entry]\nHidden=true\n"));
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(item.status(), Status::enabled);
  EXPECT_EQ(sandbox.read(entry), replaced(editedEntry, "/old/tarnwell\n", "/usr/bin/env --launched-at-login\n"));
}

TEST_F(XdgLoginItemTest, registeringTakesBackEachWayOfSwitchingOff) {
  for (const char* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
    write(std::string(ours) + line);
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), ours);
  }
}

TEST_F(XdgLoginItemTest, registeringKeepsWhatADesktopWroteOfIt) {
  const std::string marked = std::string(ours) + "X-GNOME-Autostart-enabled=true\n";
  write(marked);
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(sandbox.read(entry), marked);
}

TEST_F(XdgLoginItemTest, aLineThatStartsUsInAnotherWayIsKept) {
  for (const char* exec :
       {"env LC_ALL=C /usr/bin/env --launched-at-login", "nice /usr/bin/env --launched-at-login -x"}) {
    const std::string own = "[Desktop Entry]\nType=Application\nName=Mine\nExec=" + std::string(exec) + "\n";
    write(own);
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), own);
  }
}

TEST_F(XdgLoginItemTest, aLineThatStartsSomethingElseIsReplaced) {
  for (const char* exec :
       {"/usr/bin/env", "/opt/usr/bin/env --launched-at-login", "/usr/bin/env --launched-at-logins"}) {
    write(replaced(ours, "/usr/bin/env --launched-at-login", exec));
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), ours);
  }
}

TEST_F(XdgLoginItemTest, anEntryAsksForNoProgramThatIsNotThere) {
  for (const char* line : {"TryExec=/nowhere/tarnwell\n", "TryExec=tarnwell\\snowhere\n"}) {
    write(std::string(ours) + line);
    EXPECT_EQ(item.status(), Status::notFound);
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), ours);
  }
  for (const char* line : {"TryExec=/bin/sh\n", "TryExec=sh\n"}) {
    write(std::string(ours) + line);
    EXPECT_EQ(item.status(), Status::enabled);
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), std::string(ours) + line);
  }
}

TEST_F(XdgLoginItemTest, anEntryThatLacksSomethingIsMadeWhole) {
  write("[Desktop Entry]\nComment=Mine\n");
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(sandbox.read(entry),
            "[Desktop Entry]\nExec=/usr/bin/env --launched-at-login\nType=Application\nName=Tarnwell\n"
            "Comment=Mine\n");
}

TEST_F(XdgLoginItemTest, anEntryOfAnotherPlaceIsNotOurs) {
  itemAt("/somewhere/else/tarnwell").registerItem();
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_TRUE(sandbox.holds(entry));
  EXPECT_EQ(item.status(), Status::notRegistered);
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(sandbox.read(entry), ours);
}

TEST_F(XdgLoginItemTest, anEntryThatIsKeptElsewhereIsChangedThere) {
  fs::create_directories(sandbox / "autostart");
  sandbox.write("mine.desktop", ours);
  fs::create_symlink(sandbox / "mine.desktop", sandbox / entry);
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_EQ(item.status(), Status::notRegistered);
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_TRUE(fs::is_symlink(sandbox / entry));
  EXPECT_EQ(sandbox.read("mine.desktop"), ours);
}

TEST_F(XdgLoginItemTest, aLinkThatLeadsToNoFileIsReplaced) {
  for (const char* target : {"/dev/null", "/nowhere/at/all"}) {
    fs::create_directories(sandbox / "autostart");
    fs::create_symlink(target, sandbox / entry);
    EXPECT_EQ(item.status(), Status::notRegistered);
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(sandbox.read(entry), ours);
    fs::remove(sandbox / entry);
  }
}

TEST_F(XdgLoginItemTest, aFailureSaysWhatCouldNotBeWritten) {
  sandbox.write("autostart", "in the way");
  const auto failure = item.registerItem();
  ASSERT_TRUE(failure);
  EXPECT_EQ(*failure, "cannot write " + (sandbox / entry).string() + ": Not a directory");
  EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(XdgLoginItemTest, aProgramThatAnEntryCannotNameIsNotRegistered) {
  XdgLoginItem odd = itemAt("/a=b/tarnwell");
  EXPECT_EQ(odd.registerItem(), "an autostart entry cannot name /a=b/tarnwell: there is a \"=\" in it");
  EXPECT_FALSE(sandbox.holds("autostart"));
  write(editedEntry);
  EXPECT_EQ(odd.unregisterItem(), std::nullopt);
  EXPECT_EQ(odd.status(), Status::notRegistered);
}

TEST_F(XdgLoginItemTest, theFolderIsTheConfigurationsOrTheHomes) {
  struct Row {
    std::string configuration = {};
    std::string home = {};
    std::string folder = {};
  };
  for (const Row& row :
       {Row{"/config", "/home/me", "/config/autostart"}, Row{"", "/home/me", "/home/me/.config/autostart"},
        Row{"relative", "/home/me", "/home/me/.config/autostart"}}) {
    const fixtures::EnvironmentScope config("XDG_CONFIG_HOME", row.configuration);
    const fixtures::EnvironmentScope home("HOME", row.home);
    EXPECT_EQ(*XdgLoginItem::folder(), row.folder);
  }
}

TEST_F(XdgLoginItemTest, withoutAHomeThereIsNowhereToRegister) {
  const fixtures::EnvironmentScope config("XDG_CONFIG_HOME", "");
  const fixtures::EnvironmentScope home("HOME", "");
  EXPECT_EQ(item.status(), Status::notFound);
  EXPECT_EQ(item.registerItem(), "neither XDG_CONFIG_HOME nor HOME names a folder");
  EXPECT_EQ(item.unregisterItem(), "neither XDG_CONFIG_HOME nor HOME names a folder");
}

}  // namespace
}  // namespace tarnwell::host_linux
