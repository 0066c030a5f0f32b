#include "host/linux/start/StartProgram.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <set>
#include <sstream>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "installation/UserEnvironment.h"

namespace tarnwell::host_linux {
namespace {

using fixtures::EnvironmentScope;
using Lines = std::set<std::string>;

/// Has a program note its environment. Whether it could.
bool notesEnvironment(const std::string& file) {
  auto started = startProgram({"sh", "-c", "env >\"$0\"", file});
  return started && started->wait().isSuccess();
}

Lines linesOf(const std::string& text) {
  std::istringstream source(text);
  Lines lines;
  for (std::string line; std::getline(source, line);) {
    lines.insert(line);
  }
  return lines;
}

TEST(StartProgramTest, aProgramGetsTheEnvironmentAsItWasBeforeWeChangedIt) {
  const fixtures::Sandbox sandbox;
  const EnvironmentScope path("PATH", "/usr/bin:/bin");
  const EnvironmentScope other("SOMETHING", "of the user's");
  const int status = fixtures::exitStatusOf([&] {
    installation::keepUserEnvironment();
    ::setenv("PATH", "/stand-ins:/usr/bin:/bin", 1);
    ::setenv("OURS", "1", 1);
    return notesEnvironment((sandbox / "environment").string()) ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
  const Lines lines = linesOf(sandbox.read("environment"));
  EXPECT_TRUE(lines.contains("PATH=/usr/bin:/bin"));
  EXPECT_TRUE(lines.contains("SOMETHING=of the user's"));
  EXPECT_FALSE(lines.contains("OURS=1"));
}

TEST(StartProgramTest, aProgramOutlivesTheSessionOfItsStarter) {
  auto started = startProgram({"sleep", "600"});
  ASSERT_TRUE(started);
  EXPECT_EQ(::getsid(started->number()), started->number());
  started->send(SIGKILL);
  started->wait();
}

// It was given for our windows. A browser that uses it would take it from them, or be refused.
TEST(StartProgramTest, aProgramDoesNotGetOurPermissionToComeToTheFront) {
  for (const char* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
    const fixtures::Sandbox sandbox;
    const EnvironmentScope token(name, "ours");
    EXPECT_TRUE(notesEnvironment((sandbox / "environment").string()));
    EXPECT_FALSE(linesOf(sandbox.read("environment")).contains(std::string(name) + "=ours")) << name;
  }
}

}  // namespace
}  // namespace tarnwell::host_linux
