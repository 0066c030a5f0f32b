#include "core/DockSettings.h"

#include <tuple>
#include <utility>

#include "core/Preference.h"

namespace tarnwell::core {

DockSettings::DockSettings(Dependencies dependencies)
    : menuBarActions{{MinEffect::genie, "Genie Effect"},
                     {MinEffect::scale, "Scale Effect"},
                     {MinEffect::suck, "Suck Effect"}},
      openURL(std::move(dependencies.openURL)),
      helpPage_(std::move(dependencies.helpPage)),
      catalogue_(dependencies.runner),
      usesSingleApp_(std::move(dependencies.usesSingleApp)),
      changed_(std::move(dependencies.changed)) {}

template <class Settings, class Test>
bool DockSettings::allOf(Settings& self, const Test& test) {
  const auto testRow = [&](const auto& row) {
    return test(row, self.*row.fields.edited, self.*row.fields.current, self.*row.fields.byDefault);
  };
  return std::apply([&](const auto&... row) { return (testRow(row) && ...); }, preferences);
}

template <class Action>
void DockSettings::forEachInUse(const Action& action) {
  allOf(*this, [&](const auto& preference, auto& edited, auto& current, const auto& byDefault) {
    if (preference.gate == Gate::everySystem || usesSingleApp_()) {
      action(preference, edited, current, byDefault);
    }
    return true;
  });
}

void DockSettings::loadFromDock() {
  forEachInUse(
      [this](const auto& preference, auto&, auto& current, auto&) { current = (catalogue_.*preference.read)(); });
  forEachInUse([](auto&, auto& edited, auto& current, auto&) { edited = current; });
  notify();
}

void DockSettings::save() {
  forEachInUse([this](const auto& preference, auto& edited, auto&, auto&) { preference.write(catalogue_, edited); });
  copyEditedToCurrent();
  notify();
}

void DockSettings::resetToDefaults() {
  forEachInUse([this](const auto& preference, auto&, auto&, const auto& byDefault) {
    preference.write(catalogue_, preference.fixedReset.value_or(byDefault));
  });
  forEachInUse([](auto&, auto& edited, auto& current, const auto& byDefault) {
    edited = byDefault;
    current = byDefault;
  });
  copyEditedToCurrent();
  notify();
}

void DockSettings::openHelp() const {
  // Callbacks are called through copies, because what they do may drop this state.
  const auto open = openURL;
  open(helpPage_);
}

bool DockSettings::matchesCurrent() const {
  return allOf(*this, [](auto&, auto& edited, auto& current, auto&) { return edited == current; });
}

bool DockSettings::matchesDefaults() const {
  return allOf(*this, [](auto&, auto& edited, auto&, auto& byDefault) { return edited == byDefault; });
}

void DockSettings::copyEditedToCurrent() {
  forEachInUse([](auto&, auto& edited, auto& current, auto&) { current = edited; });
}

void DockSettings::notify() const {
  const auto changed = changed_;
  if (changed) {
    changed();
  }
}

}  // namespace tarnwell::core
