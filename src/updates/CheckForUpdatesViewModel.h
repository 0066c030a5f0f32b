#pragma once

#include "kit/ports/Updater.h"
#include "view/tree/ObservableObject.h"

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

}  // namespace tarnwell::updates
