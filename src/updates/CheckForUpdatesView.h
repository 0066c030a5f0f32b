#pragma once

#include <memory>
#include <tuple>

#include "kit/ports/Updater.h"
#include "view/state/ObservableObject.h"
#include "view/tree/Composite.h"

namespace tarnwell::updates {

/// Mirrors whether an update check may start now, for as long as it lives.
class CheckForUpdatesViewModel final : public view::ObservableObject {
 public:
  explicit CheckForUpdatesViewModel(kit::Updater& updater);

  bool canCheckForUpdates() const { return canCheckForUpdates_; }

 private:
  void assign(bool canCheck);

  bool canCheckForUpdates_ = false;
  kit::Subscription subscription_;
};

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
