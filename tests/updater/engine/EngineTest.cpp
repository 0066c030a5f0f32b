#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/processes/Pipe.h"
#include "updater/signature/SigningKey.h"

namespace tarnwell::updater {
namespace {

/// The program as the application starts it.
class EngineTest : public testing::Test {
 protected:
  int statusOf(const std::vector<std::string>& words) {
    system::Pipe output = system::Pipe::create("hear the engine");
    system::Pipe errors = system::Pipe::create("hear the engine");
    const int status = fixtures::exitStatusOf([&] {
      ::dup2(::open((sandbox / "input").c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
      ::dup2(output.writeEnd.number(), STDOUT_FILENO);
      ::dup2(errors.writeEnd.number(), STDERR_FILENO);
      std::vector<std::string> owned = words;
      std::string name = "tarnwell-update";
      std::vector<char*> pointers = {name.data()};
      for (std::string& word : owned) {
        pointers.push_back(word.data());
      }
      pointers.push_back(nullptr);
      return ::execv(UPDATE_ENGINE, pointers.data());
    });
    output.writeEnd.close();
    errors.writeEnd.close();
    said = *output.readEnd.readAll();
    complained = *errors.readEnd.readAll();
    return status;
  }

  fixtures::Sandbox sandbox;
  std::string said;
  std::string complained;
};

TEST_F(EngineTest, doesTheJobThatItsFirstWordNames) {
  sandbox.write("input", "Notes");
  EXPECT_EQ(statusOf({"read-notes"}), EXIT_SUCCESS);
  EXPECT_EQ(said, "engine 1\nparagraph body 0 0\nrun  Notes\ndone \n");
  EXPECT_EQ(complained, "");
}

TEST_F(EngineTest, aJobIsToldTheOtherWordsAndItsFailureIsSaid) {
  const std::string key = SigningKey().publicText();
  EXPECT_EQ(statusOf({"fetch-feed", "http://updates.invalid/feed", "Tarnwell/1", "30", key}), EXIT_FAILURE);
  EXPECT_EQ(said,
            "engine 1\nfailed The address http://updates.invalid/feed is not secure. Updates are fetched over HTTPS "
            "only.\n");
}

TEST_F(EngineTest, withOtherWordsItDoesNothingButSaySo) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{}, {""}, {"read"}, {"read-notes", "more"}, {"verify"}}) {
    EXPECT_EQ(statusOf(words), EXIT_FAILURE);
    EXPECT_EQ(said, "");
    EXPECT_EQ(complained, "tarnwell: the update engine is started by the application, and does nothing by itself\n");
  }
}

}  // namespace
}  // namespace tarnwell::updater
