#include "host/linux/CommandLine.h"

#include <CLI/CLI.hpp>

namespace tarnwell::host_linux {
namespace {

constexpr const char* usage = "usage: tarnwell [--help | --version]";

std::string trimmed(std::string text) {
  text.erase(text.find_last_not_of('\n') + 1);
  return text;
}

}  // namespace

CommandLine::Parsed CommandLine::parse(int argc, const char* const* argv) {
  CLI::App app("Hidden settings of the Dock, in a window.", "tarnwell");
  app.set_help_flag("--help", "Print this text and exit");
  app.set_version_flag("--version", "tarnwell " TARNWELL_VERSION);
  LaunchArguments launch;
  // Written into the autostart entry by the program itself; nothing for a user to type.
  app.add_flag(LaunchArguments::launchedAtLogin, launch.atLogin)->group("");
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return Print{trimmed(app.help())};
  } catch (const CLI::CallForVersion& version) {
    return Print{version.what()};
  } catch (const CLI::ParseError& error) {
    return Failure{std::string(error.what()) + "\n" + usage};
  }
  return launch;
}

}  // namespace tarnwell::host_linux
