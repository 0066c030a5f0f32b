#pragma once

#include <optional>

#include "core/Catalogue.h"

namespace tarnwell::core {

/// The systems on which a preference is read, written, reset and copied.
enum class Gate { everySystem, olderThan15 };

/// One row of the catalogue, for a preference with values of type `T`.
template <class T>
struct Preference {
  T (Catalogue::*read)() const = nullptr;
  void (*write)(const Catalogue& catalogue, T value) = nullptr;
  /// What a reset writes instead of the default.
  std::optional<T> fixedReset = std::nullopt;
  Gate gate = Gate::everySystem;
};

namespace preferences {

inline constexpr Preference<double> delaySpeed = {
    .read = &Catalogue::readDelaySpeed, .write = [](const Catalogue& catalogue, double value) {
      catalogue.writeFloat("defaults write com.apple.dock autohide-delay -float ", value);
    }};
inline constexpr Preference<double> animationSpeed = {
    .read = &Catalogue::readAnimationSpeed, .write = [](const Catalogue& catalogue, double value) {
      catalogue.writeFloat("defaults write com.apple.dock autohide-time-modifier -float ", value);
    }};
inline constexpr Preference<bool> scrollToExpose = {
    .read = &Catalogue::readScrollToExpose, .write = [](const Catalogue& catalogue, bool value) {
      catalogue.writeBool("defaults write com.apple.dock scroll-to-open -bool ", value);
    }};
inline constexpr Preference<MinEffect> minEffect = {
    .read = &Catalogue::readMinEffect,
    .write = [](const Catalogue& catalogue, MinEffect value) { catalogue.writeMinEffect(value); },
    .fixedReset = MinEffect::genie};
inline constexpr Preference<bool> showHidden = {
    .read = &Catalogue::readShowHidden, .write = [](const Catalogue& catalogue, bool value) {
      catalogue.writeBool("defaults write com.apple.dock showhidden -bool ", value);
    }};
inline constexpr Preference<bool> activeAppsOnly = {
    .read = &Catalogue::readActiveAppsOnly, .write = [](const Catalogue& catalogue, bool value) {
      catalogue.writeBool("defaults write com.apple.dock static-only -bool ", value);
    }};
inline constexpr Preference<bool> singleAppMode = {
    .read = &Catalogue::readSingleAppMode,
    .write = [](const Catalogue& catalogue, bool value) { catalogue.writeSingleApp(value); },
    .gate = Gate::olderThan15};

}  // namespace preferences
}  // namespace tarnwell::core
