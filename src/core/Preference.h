#pragma once

#include <optional>
#include <string_view>
#include <tuple>

#include "core/Catalogue.h"
#include "core/DockSettings.h"

namespace tarnwell::core {

/// The systems on which a preference is read, written, reset and copied.
enum class Gate { everySystem, olderThan15 };

/// Where the settings state holds a preference.
template <class T>
struct Fields {
  T DockSettings::*edited;
  T DockSettings::*current;
  const T DockSettings::*byDefault;
};

/// An operation of the catalogue that writes, and the prefix for one that takes any.
template <class T>
struct Writer {
  using Prefixed = void (Catalogue::*)(std::string_view prefix, T value) const;
  using Unprefixed = void (Catalogue::*)(T value) const;

  void operator()(const Catalogue& catalogue, T value) const {
    if (prefixed != nullptr) {
      (catalogue.*prefixed)(prefix, value);
    } else {
      (catalogue.*unprefixed)(value);
    }
  }

  Prefixed prefixed = nullptr;
  std::string_view prefix = {};
  Unprefixed unprefixed = nullptr;
};

/// One row of the catalogue, for a preference with values of type `T`.
template <class T>
struct Preference {
  /// Its name in the domain of the Dock; the commands that read and write it spell it as well.
  std::string_view key;
  Fields<T> fields;
  T (Catalogue::*read)() const;
  Writer<T> write;
  /// What a reset writes instead of the default.
  std::optional<T> fixedReset = std::nullopt;
  Gate gate = Gate::everySystem;
};

/// In the order in which they are read, written, reset and compared.
inline constexpr std::tuple preferences = {
    Preference<double>{
        .key = "autohide-delay",
        .fields = {&DockSettings::delaySpeed, &DockSettings::delaySpeedCurrent, &DockSettings::delaySpeedDefault},
        .read = &Catalogue::readDelaySpeed,
        .write = {&Catalogue::writeFloat, "defaults write com.apple.dock autohide-delay -float "}},
    Preference<double>{
        .key = "autohide-time-modifier",
        .fields = {&DockSettings::animationSpeed, &DockSettings::animationSpeedCurrent,
                   &DockSettings::animationSpeedDefault},
        .read = &Catalogue::readAnimationSpeed,
        .write = {&Catalogue::writeFloat, "defaults write com.apple.dock autohide-time-modifier -float "}},
    Preference<bool>{.key = "scroll-to-open",
                     .fields = {&DockSettings::scrollToExpose, &DockSettings::scrollToExposeCurrent,
                                &DockSettings::scrollToExposeDefault},
                     .read = &Catalogue::readScrollToExpose,
                     .write = {&Catalogue::writeBool, "defaults write com.apple.dock scroll-to-open -bool "}},
    Preference<MinEffect>{
        .key = "mineffect",
        .fields = {&DockSettings::minEffect, &DockSettings::minEffectCurrent, &DockSettings::minEffectDefault},
        .read = &Catalogue::readMinEffect,
        .write = {.unprefixed = &Catalogue::writeMinEffect},
        .fixedReset = MinEffect::genie},
    Preference<bool>{
        .key = "showhidden",
        .fields = {&DockSettings::showHidden, &DockSettings::showHiddenCurrent, &DockSettings::showHiddenDefault},
        .read = &Catalogue::readShowHidden,
        .write = {&Catalogue::writeBool, "defaults write com.apple.dock showhidden -bool "}},
    Preference<bool>{.key = "static-only",
                     .fields = {&DockSettings::activeAppsOnly, &DockSettings::activeAppsOnlyCurrent,
                                &DockSettings::activeAppsOnlyDefault},
                     .read = &Catalogue::readActiveAppsOnly,
                     .write = {&Catalogue::writeBool, "defaults write com.apple.dock static-only -bool "}},
    Preference<bool>{.key = "single-app",
                     .fields = {&DockSettings::singleAppMode, &DockSettings::singleAppModeCurrent,
                                &DockSettings::singleAppModeDefault},
                     .read = &Catalogue::readSingleAppMode,
                     .write = {.unprefixed = &Catalogue::writeSingleApp},
                     .gate = Gate::olderThan15}};

}  // namespace tarnwell::core
