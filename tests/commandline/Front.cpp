#include "commandline/Front.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "fixtures/WaitFor.h"

namespace tarnwell::commandline {
namespace {

namespace fs = std::filesystem;

fs::path libexec() { return fs::path(FRONT_PATH).parent_path() / "libexec"; }

}  // namespace

Front::Front(Dock dock) {
  fs::create_directories(system_.root());
  if (dock == Dock::isAbsent) {
    return;
  }
  const std::string supervisor = dock == Dock::isTheLast ? ownSupervisor() : SUPERVISOR_PATH;
  supervisor_ = std::make_unique<standin::Process>(Words{supervisor}, environment());
  if (!waitForStarts(1)) {
    throw std::runtime_error("no Dock has started");
  }
  if (dock == Dock::isTheLast) {
    fs::remove(fs::path(supervisor).parent_path() / "Dock");
  }
}

// It starts the Dock that lies beside it.
std::string Front::ownSupervisor() const {
  const fs::path folder = system_.folder() / "supervised";
  fs::create_directories(folder);
  fs::copy_file(SUPERVISOR_PATH, folder / "dock-supervisor");
  fs::create_symlink(libexec() / "Dock", folder / "Dock");
  return folder / "dock-supervisor";
}

void Front::watchShells() const {
  system_.folder().write(".zshenv", "print -r -- \"$ZSH_EXECUTION_STRING\" >>~/shells\n");
}

Outcome Front::run(const Words& words, const Words& more) const {
  Words command = {program_};
  command.insert(command.end(), words.begin(), words.end());
  return standin::run(command, environment(more));
}

std::unique_ptr<standin::Process> Front::start(const Words& words) const {
  Words command = {program_};
  command.insert(command.end(), words.begin(), words.end());
  return std::make_unique<standin::Process>(command, environment());
}

Outcome Front::shell(const std::string& text) const {
  return standin::run({"/bin/sh", "-c", text}, environment({"T=" + program_}));
}

std::string Front::stored(const std::string& key) const {
  const Outcome type = defaults({"read-type", "com.apple.dock", key});
  if (type.status != 0) {
    return {};
  }
  // "Type is boolean"
  const std::string name = type.output.substr(type.output.rfind(' ') + 1);
  return name.substr(0, name.size() - 1) + " " + system_.value(key);
}

int Front::starts() const {
  const std::string log = standin::fileContent(system_.dockLog());
  return static_cast<int>(std::count(log.begin(), log.end(), '\n'));
}

bool Front::waitForStarts(int count) const {
  return fixtures::waitFor([&] { return starts() >= count; });
}

void Front::replaceTool(const std::string& tool, const std::string& text) {
  moveAside();
  const std::string name = "own/libexec/" + tool;
  fs::remove(system_.folder() / name);
  system_.folder().write(name, "#!/bin/sh\nREAL='" + (libexec() / tool).string() + "'\n" + text + "\n");
  fs::permissions(system_.folder() / name, fs::perms::owner_all);
}

void Front::moveAside() {
  const fs::path own = system_.folder() / "own";
  if (program_ != FRONT_PATH) {
    return;
  }
  fs::create_directories(own / "libexec");
  program_ = (own / "tarnwell").string();
  fs::copy_file(FRONT_PATH, program_);
  for (const char* tool : {"defaults", "killall"}) {
    fs::create_symlink(libexec() / tool, own / "libexec" / tool);
  }
}

Words Front::environment(const Words& more) const {
  // Of two with the same name the first counts.
  Words variables = more;
  const Words played = system_.environment();
  variables.insert(variables.end(), played.begin(), played.end());
  variables.push_back("HOME=" + system_.folder().path().string());
  variables.push_back("XDG_STATE_HOME=" + file("state"));
  return variables;
}

}  // namespace tarnwell::commandline
