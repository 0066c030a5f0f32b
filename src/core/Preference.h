#pragma once

#include <optional>
#include <string_view>
#include <tuple>

#include "core/Catalogue.h"
#include "core/DockValues.h"

namespace tarnwell::core {

/// The systems on which a preference is read, written, reset and copied.
enum class Gate { everySystem, olderThan15 };

/// Where the settings state holds a preference.
template <class T>
struct Fields {
  T DockValues::*edited;
  T DockValues::*current;
  const T DockValues::*byDefault;
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
        .fields = {&DockValues::delaySpeed, &DockValues::delaySpeedCurrent, &DockValues::delaySpeedDefault},
        .read = &Catalogue::readDelaySpeed,
        .write = {&Catalogue::writeFloat, "defaults write com.apple.dock autohide-delay -float "}},
    Preference<double>{
        .key = "autohide-time-modifier",
        .fields = {&DockValues::animationSpeed, &DockValues::animationSpeedCurrent, &DockValues::animationSpeedDefault},
        .read = &Catalogue::readAnimationSpeed,
        .write = {&Catalogue::writeFloat, "defaults write com.apple.dock autohide-time-modifier -float "}},
    Preference<bool>{
        .key = "scroll-to-open",
        .fields = {&DockValues::scrollToExpose, &DockValues::scrollToExposeCurrent, &DockValues::scrollToExposeDefault},
        .read = &Catalogue::readScrollToExpose,
        .write = {&Catalogue::writeBool, "defaults write com.apple.dock scroll-to-open -bool "}},
    Preference<MinEffect>{
        .key = "mineffect",
        .fields = {&DockValues::minEffect, &DockValues::minEffectCurrent, &DockValues::minEffectDefault},
        .read = &Catalogue::readMinEffect,
        .write = {.unprefixed = &Catalogue::writeMinEffect},
        .fixedReset = MinEffect::genie},
    Preference<bool>{
        .key = "showhidden",
        .fields = {&DockValues::showHidden, &DockValues::showHiddenCurrent, &DockValues::showHiddenDefault},
        .read = &Catalogue::readShowHidden,
        .write = {&Catalogue::writeBool, "defaults write com.apple.dock showhidden -bool "}},
    Preference<bool>{
        .key = "static-only",
        .fields = {&DockValues::activeAppsOnly, &DockValues::activeAppsOnlyCurrent, &DockValues::activeAppsOnlyDefault},
        .read = &Catalogue::readActiveAppsOnly,
        .write = {&Catalogue::writeBool, "defaults write com.apple.dock static-only -bool "}},
    Preference<bool>{
        .key = "single-app",
        .fields = {&DockValues::singleAppMode, &DockValues::singleAppModeCurrent, &DockValues::singleAppModeDefault},
        .read = &Catalogue::readSingleAppMode,
        .write = {.unprefixed = &Catalogue::writeSingleApp},
        .gate = Gate::olderThan15}};

}  // namespace tarnwell::core
