#pragma once

#include <string>
#include <string_view>

#include "core/CommandRunner.h"
#include "core/MinEffect.h"
#include "core/ValueText.h"

namespace tarnwell::core {

/// How the preferences of the Dock are read and written: values become commands, and what commands print becomes
/// values. The outcome of a write is never known; a read that fails gives 0.0, false or genie.
class Catalogue {
 public:
  /// The runner is borrowed for the catalogue's life.
  explicit Catalogue(CommandRunner& runner) : runner_(runner) {}

  /// Starts the command that `prefix` begins; it ends with a blank, since the value's text follows as it stands. The
  /// Dock is restarted whatever becomes of the write.
  void writeFloat(std::string_view prefix, double value) const;
  void writeBool(std::string_view prefix, bool value) const;
  void writeSingleApp(bool value) const;
  /// The one whose Dock is restarted only after a write that succeeded.
  void writeMinEffect(MinEffect value) const;

  /// Each runs a read command to its end. Animation, scrolling and effect also print on the console what they read.
  double readDelaySpeed() const { return parseFloat(read("autohide-delay")); }
  double readAnimationSpeed() const { return parseFloat(readAndPrint("autohide-time-modifier")); }
  bool readScrollToExpose() const { return parseBool(readAndPrint("scroll-to-open", "SCROLL ")); }
  MinEffect readMinEffect() const { return parseMinEffect(readAndPrint("mineffect")).value_or(MinEffect::genie); }
  bool readShowHidden() const { return parseBool(read("showhidden")); }
  bool readActiveAppsOnly() const { return parseBool(read("static-only")); }
  bool readSingleAppMode() const { return parseBool(read("single-app")); }

 private:
  void write(std::string_view prefix, std::string_view value, std::string_view suffix) const;
  std::string read(std::string_view key) const;
  std::string readAndPrint(std::string_view key, const std::string& label = {}) const;

  CommandRunner& runner_;
};

}  // namespace tarnwell::core
