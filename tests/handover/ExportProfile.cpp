#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "profile/exports/Targets.h"
#include "profile/toml/ProfileReader.h"

namespace tarnwell::profile {
namespace {

int run(const std::vector<std::string_view>& arguments) {
  const auto* target = arguments.size() < 2 ? targets.end() : std::ranges::find(targets, arguments[1], &Target::name);
  if (target == targets.end()) {
    std::cerr << "usage: export-profile TARGET [--restart] <PROFILE\n";
    return EXIT_FAILURE;
  }
  const std::string text(std::istreambuf_iterator<char>(std::cin), {});
  const auto profile = readProfile(text, "standard input");
  if (!profile) {
    std::cerr << profile.error().message << '\n';
    return EXIT_FAILURE;
  }
  const bool restarts = arguments.size() > 2 && arguments[2] == "--restart";
  const auto result = target->write(*profile, {.identifier = "org.example.dock", .restartsDock = restarts});
  if (!result) {
    std::cerr << result.error().message << '\n';
    return EXIT_FAILURE;
  }
  std::cout << result->text;
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tarnwell::profile

// Prints what a target takes.
int main(int argc, char** argv) { return tarnwell::profile::run({argv, argv + argc}); }
