#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/CommandRunner.h"
#include "core/MinEffect.h"
#include "core/Preference.h"

namespace tarnwell::core {

/// The seven preferences of the Dock: the table of their facts, and the operations that turn values into commands and
/// what commands print into values. The outcome of a write is never known; a read that fails gives 0.0, false or genie.
class Catalogue {
 public:
  /// The runner is borrowed for the catalogue's life.
  explicit Catalogue(CommandRunner& runner) : runner_(runner) {}

  /// All rows, in the order in which they are loaded, saved, reset and compared.
  static std::span<const Preference, 7> preferences();

  /// Starts the write command of the row that has `prefix`; a prefix of no row is a fault.
  void writeFloat(std::string_view prefix, double value) const;
  void writeBool(std::string_view prefix, bool value) const;
  void writeSingleApp(bool value) const;
  void writeMinEffect(MinEffect value) const;

  /// Each runs a read command to its end and prints on the console what its row says.
  double readDelaySpeed() const;
  double readAnimationSpeed() const;
  bool readScrollToExpose() const;
  MinEffect readMinEffect() const;
  bool readShowHidden() const;
  bool readActiveAppsOnly() const;
  bool readSingleAppMode() const;

 private:
  void write(const Preference& preference, std::string_view valueText) const;
  std::string read(const Preference& preference) const;

  CommandRunner& runner_;
};

}  // namespace tarnwell::core
