#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Require.h"
#include "fuzz/Words.h"
#include "standin/store/SystemRoot.h"
#include "system/base/Utf8.h"
#include "system/processes/RunningProcessLinux.h"

namespace tarnwell::fuzz {
namespace {

/// What killall makes of another process's environment.
void checkEnvironment(const std::string& text) {
  const std::vector<std::string> variables = system::variablesIn(text);
  require(variables == wordsIn(text));
  const auto root = standin::systemRoot([&](const std::string& name) {
    const auto found =
        std::ranges::find_if(variables, [&](const std::string& each) { return each.starts_with(name + "="); });
    return found == variables.end() ? std::string() : found->substr(name.size() + 1);
  });
  require(!root || (!root->empty() && system::isUtf8(*root)));
}

/// The text is the line of a process, and the name in one of a process that is there.
void checkStanding(const std::string& text) {
  require(system::standingIn(text).isEnding || text.find_first_of("0123456789") != std::string::npos);
  const system::ProcessStanding named = system::standingIn("7 (" + text + ") S 42 7 7 0 -1 4194304 0 0");
  require(!named.isEnding && named.parent == 42);
  require(system::standingIn("7 (" + text + ") Z 42 7 7 0 -1 4194304 0 0").isEnding);
  require(system::standingIn("7 (" + text + ") S 42 7 7 0 -1 4194308 0 0").isEnding);
  // What is cut off is nothing to go by.
  require(system::standingIn("7 (" + text + ") S 42 7 7 0 -1").isEnding);
}

void run(std::string_view text) {
  checkEnvironment(std::string(text));
  checkStanding(std::string(text));
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
