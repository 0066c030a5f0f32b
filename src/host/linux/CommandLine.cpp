#include "host/linux/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarnwell::host_linux {
namespace {

std::string withoutLastNewlines(std::string text) {
  text.erase(text.find_last_not_of('\n') + 1);
  return text;
}

system::Failure refused(const std::string& program, const std::string& reason) {
  return {reason + "\nusage: " + program + " [--help | --version]"};
}

// The library lets pass what stands beside a request for help, and values of words that have none.
std::optional<std::string> objectionTo(const std::string& program, std::span<const char* const> arguments) {
  constexpr std::array<std::string_view, 3> known = {"--help", "--version", LaunchArguments::launchedAtLogin};
  for (const std::string argument : arguments) {
    if (std::ranges::find(known, argument) == known.end()) {
      return std::string("\"").append(argument).append("\" is not an argument of ").append(program).append(".");
    }
  }
  return arguments.size() > 1 ? std::optional<std::string>("There are too many arguments.") : std::nullopt;
}

}  // namespace

CommandLine::Parsed CommandLine::parse(const kit::Product& product, int argc, const char* const* argv) {
  CLI::App app(product.summary + ".", product.program);
  app.set_help_flag("--help", "Print this text and exit");
  app.set_version_flag("--version", product.program + " " + product.version);
  LaunchArguments launch;
  // Written into the autostart entry by the program itself; nothing for a user to type.
  app.add_flag(LaunchArguments::launchedAtLogin, launch.atLogin)->group("");
  if (auto objection =
          objectionTo(product.program, std::span(argv, static_cast<std::size_t>(argc)).subspan(argc > 0 ? 1 : 0))) {
    return refused(product.program, *objection);
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Print{withoutLastNewlines(app.help())};
  } catch (const CLI::CallForVersion& version) {
    return Print{version.what()};
  } catch (const CLI::ParseError& error) {
    return refused(product.program, error.what());
  }
  return launch;
}

}  // namespace tarnwell::host_linux
