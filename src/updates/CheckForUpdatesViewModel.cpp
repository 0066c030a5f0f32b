#include "updates/CheckForUpdatesViewModel.h"

namespace tarnwell::updates {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(kit::Updater& updater)
    : subscription_(updater.observeCanCheckForUpdates([this](bool canCheck) { assign(canCheck); })) {
  assign(updater.canCheckForUpdates());
}

void CheckForUpdatesViewModel::assign(bool canCheck) {
  objectWillChange();
  canCheckForUpdates_ = canCheck;
}

}  // namespace tarnwell::updates
