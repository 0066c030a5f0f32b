#pragma once

#include <memory>
#include <string>

#include "standin/MacSystem.h"
#include "standin/Process.h"

namespace tarnwell::commandline {

using standin::Outcome;
using standin::Words;

/// The program that users start, on a played system of its own with a supervised Dock, or without one.
class Front {
 public:
  enum class Dock {
    runs,
    isTheLast,  // runs, and none can be started any more
    isAbsent,
  };

  /// Waits for the Dock.
  explicit Front(Dock dock = Dock::runs);

  /// Types words behind the program's name.
  Outcome run(const Words& words, const Words& environment = {}) const;
  /// The same, without waiting for its end.
  std::unique_ptr<standin::Process> start(const Words& words) const;
  /// Runs a shell text in which "$T" is the program and "$D" the tool `defaults`.
  Outcome shell(const std::string& text) const;

  /// The stand-in's `defaults`, directly.
  Outcome defaults(const Words& arguments) const { return system_.defaults(arguments); }
  /// What that says of the type and value of a key: "boolean 1", or nothing.
  std::string stored(const std::string& key) const;

  /// From here on the lines are kept that shells of the program run, which are then `shellLines`.
  void watchShells() const;
  std::string shellLines() const { return standin::fileContent(file("shells")); }

  /// How many Docks have started.
  int starts() const;
  /// Waits until as many have.
  bool waitForStarts(int count) const;

  /// From here on the program runs beside tools of the test's own: `tool` is a shell text that is run instead of the
  /// stand-in, which it knows as "$REAL".
  void replaceTool(const std::string& tool, const std::string& text);

  const standin::MacSystem& system() const { return system_; }
  std::string file(const std::string& name) const { return (system_.folder() / name).string(); }
  std::string stateFolder() const { return file("state/tarnwell"); }

 private:
  Words environment(const Words& more = {}) const;
  void moveAside();
  std::string ownSupervisor() const;

  standin::MacSystem system_;
  std::string program_ = FRONT_PATH;
  std::unique_ptr<standin::Process> supervisor_;
};

}  // namespace tarnwell::commandline
