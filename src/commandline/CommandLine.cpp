#include "commandline/CommandLine.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "installation/LaunchedAtLogin.h"

namespace tarnwell::commandline {
namespace {

system::Failure refused(const std::string& program, const std::string& reason) {
  return {reason + "\nusage: " + program + " [--help | --version]"};
}

std::string help(const Product& product) {
  return product.summary + ".\nUsage: " + product.program +
         " [OPTIONS]\n\nOptions:\n"
         "  --help       Print this text and exit\n"
         "  --version    Display program version information and exit";
}

}  // namespace

Request parse(const Product& product, std::span<const char* const> arguments) {
  constexpr std::array<std::string_view, 3> known = {"--help", "--version", installation::launchedAtLogin};
  for (const std::string argument : arguments) {
    if (std::ranges::find(known, argument) == known.end()) {
      return refused(product.program, '"' + argument + "\" is not an argument of " + product.program + ".");
    }
  }
  if (arguments.size() > 1) {
    return refused(product.program, "There are too many arguments.");
  }
  const std::string_view argument = arguments.empty() ? "" : arguments.front();
  if (argument == "--help") {
    return Print{help(product)};
  }
  if (argument == "--version") {
    return Print{product.program + " " + product.version};
  }
  return ShowWindow{};
}

}  // namespace tarnwell::commandline
