#pragma once

#include <memory>
#include <tuple>

#include "updates/CheckForUpdatesViewModel.h"
#include "view/tree/Composite.h"
#include "view/tree/ObservableObject.h"

namespace tarnwell::updates {

/// The button that starts an update check; disabled while none may start.
struct CheckForUpdatesView {
  /// The updater is borrowed and outlives the view.
  explicit CheckForUpdatesView(kit::Updater& updater);

  auto stored() { return std::tie(_checkForUpdatesViewModel); }
  view::View body() const;

  view::ObservedObject<CheckForUpdatesViewModel> _checkForUpdatesViewModel;
  kit::Updater* updater;
};

}  // namespace tarnwell::updates
