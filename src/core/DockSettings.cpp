#include "core/DockSettings.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "core/ProductPages.h"

namespace tarnwell::core {

DockSettings::DockSettings(Surroundings surroundings)
    : menuBarActions{{MinEffect::genie, "Genie Effect"},
                     {MinEffect::scale, "Scale Effect"},
                     {MinEffect::suck, "Suck Effect"}},
      openURL(std::move(surroundings.openURL)),
      catalogue_(surroundings.runner),
      usesSingleApp_(std::move(surroundings.usesSingleApp)),
      changed_(std::move(surroundings.changed)) {}

template <class Action>
void DockSettings::forEachInUse(Action action) const {
  for (const Preference& preference : Catalogue::preferences()) {
    if (preference.gate == Gate::everySystem || usesSingleApp_()) {
      std::visit([&](const auto& access) { action(access, preference.writePrefix); }, preference.access);
    }
  }
}

template <class Test>
bool DockSettings::allOf(Test test) const {
  const auto preferences = Catalogue::preferences();
  return std::all_of(preferences.begin(), preferences.end(),
                     [&](const Preference& preference) { return std::visit(test, preference.access); });
}

void DockSettings::loadFromDock() {
  forEachInUse([this](const auto& access, auto) { this->*access.current = (catalogue_.*access.read)(); });
  forEachInUse([this](const auto& access, auto) { this->*access.edited = this->*access.current; });
  notify();
}

void DockSettings::save() {
  forEachInUse([this](const auto& access, auto prefix) { access.write(catalogue_, prefix, this->*access.edited); });
  copyEditedToCurrent();
  notify();
}

void DockSettings::resetToDefaults() {
  forEachInUse([this](const auto& access, auto prefix) {
    access.write(catalogue_, prefix, access.fixedReset.value_or(this->*access.byDefault));
  });
  forEachInUse([this](const auto& access, auto) {
    this->*access.edited = this->*access.byDefault;
    this->*access.current = this->*access.byDefault;
  });
  copyEditedToCurrent();
  notify();
}

void DockSettings::openHelp() const {
  // Callbacks are called through copies, because what they do may drop this state.
  const auto open = openURL;
  open(helpPage());
}

bool DockSettings::matchesCurrent() const {
  return allOf([this](const auto& access) { return this->*access.edited == this->*access.current; });
}

bool DockSettings::matchesDefaults() const {
  return allOf([this](const auto& access) { return this->*access.edited == this->*access.byDefault; });
}

void DockSettings::copyEditedToCurrent() {
  forEachInUse([this](const auto& access, auto) { this->*access.current = this->*access.edited; });
}

void DockSettings::notify() const {
  const auto changed = changed_;
  if (changed) {
    changed();
  }
}

}  // namespace tarnwell::core
