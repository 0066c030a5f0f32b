#include "core/Catalogue.h"

#include <array>

#include "core/DecimalText.h"
#include "core/DockSettings.h"
#include "core/ValueText.h"
#include "diagnostics/Console.h"
#include "diagnostics/Fault.h"

namespace tarnwell::core {
namespace {

constexpr std::string_view restartAlways = "; killall Dock";
constexpr std::string_view restartOnSuccess = " && killall Dock";

void writeFloatRow(const Catalogue& catalogue, std::string_view prefix, double value) {
  catalogue.writeFloat(prefix, value);
}

void writeBoolRow(const Catalogue& catalogue, std::string_view prefix, bool value) {
  catalogue.writeBool(prefix, value);
}

void writeSingleAppRow(const Catalogue& catalogue, std::string_view, bool value) { catalogue.writeSingleApp(value); }

void writeMinEffectRow(const Catalogue& catalogue, std::string_view, MinEffect value) {
  catalogue.writeMinEffect(value);
}

constexpr std::array<Preference, 7> table = {{
    {.writePrefix = "defaults write com.apple.dock autohide-delay -float ",
     .writeSuffix = restartAlways,
     .readCommand = "defaults read com.apple.dock autohide-delay",
     .access = ValueAccess<double>{.byDefault = &DockSettings::delaySpeedDefault,
                                   .current = &DockSettings::delaySpeedCurrent,
                                   .edited = &DockSettings::delaySpeed,
                                   .read = &Catalogue::readDelaySpeed,
                                   .write = writeFloatRow}},
    {.writePrefix = "defaults write com.apple.dock autohide-time-modifier -float ",
     .writeSuffix = restartAlways,
     .readCommand = "defaults read com.apple.dock autohide-time-modifier",
     .printedLabel = "",
     .access = ValueAccess<double>{.byDefault = &DockSettings::animationSpeedDefault,
                                   .current = &DockSettings::animationSpeedCurrent,
                                   .edited = &DockSettings::animationSpeed,
                                   .read = &Catalogue::readAnimationSpeed,
                                   .write = writeFloatRow}},
    {.writePrefix = "defaults write com.apple.dock scroll-to-open -bool ",
     .writeSuffix = restartAlways,
     .readCommand = "defaults read com.apple.dock scroll-to-open",
     .printedLabel = "SCROLL ",
     .access = ValueAccess<bool>{.byDefault = &DockSettings::scrollToExposeDefault,
                                 .current = &DockSettings::scrollToExposeCurrent,
                                 .edited = &DockSettings::scrollToExpose,
                                 .read = &Catalogue::readScrollToExpose,
                                 .write = writeBoolRow}},
    {.writePrefix = "defaults write com.apple.dock mineffect -string ",
     .writeSuffix = restartOnSuccess,
     .readCommand = "defaults read com.apple.dock mineffect",
     .printedLabel = "",
     .access = ValueAccess<MinEffect>{.byDefault = &DockSettings::minEffectDefault,
                                      .current = &DockSettings::minEffectCurrent,
                                      .edited = &DockSettings::minEffect,
                                      .read = &Catalogue::readMinEffect,
                                      .write = writeMinEffectRow,
                                      .fixedReset = MinEffect::genie}},
    {.writePrefix = "defaults write com.apple.dock showhidden -bool ",
     .writeSuffix = restartAlways,
     .readCommand = "defaults read com.apple.dock showhidden",
     .access = ValueAccess<bool>{.byDefault = &DockSettings::showHiddenDefault,
                                 .current = &DockSettings::showHiddenCurrent,
                                 .edited = &DockSettings::showHidden,
                                 .read = &Catalogue::readShowHidden,
                                 .write = writeBoolRow}},
    {.writePrefix = "defaults write com.apple.dock static-only -bool ",
     .writeSuffix = restartAlways,
     .readCommand = "defaults read com.apple.dock static-only",
     .access = ValueAccess<bool>{.byDefault = &DockSettings::activeAppsOnlyDefault,
                                 .current = &DockSettings::activeAppsOnlyCurrent,
                                 .edited = &DockSettings::activeAppsOnly,
                                 .read = &Catalogue::readActiveAppsOnly,
                                 .write = writeBoolRow}},
    {.writePrefix = "defaults write com.apple.dock single-app -bool ",
     .writeSuffix = restartAlways,
     .readCommand = "defaults read com.apple.dock single-app",
     .gate = Gate::olderThan15,
     .access = ValueAccess<bool>{.byDefault = &DockSettings::singleAppModeDefault,
                                 .current = &DockSettings::singleAppModeCurrent,
                                 .edited = &DockSettings::singleAppMode,
                                 .read = &Catalogue::readSingleAppMode,
                                 .write = writeSingleAppRow}},
}};

// A field that no row edits would be a mistake in this file, and the compiler finds it.
template <class T>
consteval const Preference& preferenceOf(T DockSettings::*edited) {
  for (const Preference& preference : table) {
    const auto* const access = std::get_if<ValueAccess<T>>(&preference.access);
    if (access != nullptr && access->edited == edited) {
      return preference;
    }
  }
  throw "no preference edits this field";
}

const Preference& preferenceWrittenWith(std::string_view prefix) {
  for (const Preference& preference : table) {
    if (preference.writePrefix == prefix) {
      return preference;
    }
  }
  diagnostics::fault("no preference is written with \"" + std::string(prefix) + "\"");
}

}  // namespace

std::span<const Preference, 7> Catalogue::preferences() { return table; }

void Catalogue::writeFloat(std::string_view prefix, double value) const {
  write(preferenceWrittenWith(prefix), decimalText(value));
}

void Catalogue::writeBool(std::string_view prefix, bool value) const {
  write(preferenceWrittenWith(prefix), boolText(value));
}

void Catalogue::writeSingleApp(bool value) const { write(preferenceOf(&DockSettings::singleAppMode), boolText(value)); }

void Catalogue::writeMinEffect(MinEffect value) const { write(preferenceOf(&DockSettings::minEffect), text(value)); }

double Catalogue::readDelaySpeed() const { return parseFloat(read(preferenceOf(&DockSettings::delaySpeed))); }

double Catalogue::readAnimationSpeed() const { return parseFloat(read(preferenceOf(&DockSettings::animationSpeed))); }

bool Catalogue::readScrollToExpose() const { return parseBool(read(preferenceOf(&DockSettings::scrollToExpose))); }

MinEffect Catalogue::readMinEffect() const {
  return parseMinEffect(read(preferenceOf(&DockSettings::minEffect))).value_or(MinEffect::genie);
}

bool Catalogue::readShowHidden() const { return parseBool(read(preferenceOf(&DockSettings::showHidden))); }

bool Catalogue::readActiveAppsOnly() const { return parseBool(read(preferenceOf(&DockSettings::activeAppsOnly))); }

bool Catalogue::readSingleAppMode() const { return parseBool(read(preferenceOf(&DockSettings::singleAppMode))); }

void Catalogue::write(const Preference& preference, std::string_view valueText) const {
  std::string commandLine(preference.writePrefix);
  commandLine += valueText;
  commandLine += preference.writeSuffix;
  runner_.runDetached(commandLine);
}

std::string Catalogue::read(const Preference& preference) const {
  std::string answer = withoutLineFeeds(runner_.runCaptured(std::string(preference.readCommand)));
  if (preference.printedLabel) {
    diagnostics::printLine(std::string(*preference.printedLabel) + answer);
  }
  return answer;
}

}  // namespace tarnwell::core
