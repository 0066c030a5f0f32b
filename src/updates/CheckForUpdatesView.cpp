#include "updates/CheckForUpdatesView.h"

#include "view/controls/buttons/Button.h"

namespace tarnwell::updates {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(kit::Updater& updater)
    : subscription_(updater.observeCanCheckForUpdates([this](bool canCheck) { assign(canCheck); })) {
  assign(updater.canCheckForUpdates());
}

void CheckForUpdatesViewModel::assign(bool canCheck) {
  objectWillChange();
  canCheckForUpdates_ = canCheck;
}

CheckForUpdatesView::CheckForUpdatesView(kit::Updater& theUpdater)
    : _checkForUpdatesViewModel(std::make_shared<CheckForUpdatesViewModel>(theUpdater)), updater(&theUpdater) {}

view::View CheckForUpdatesView::body() const {
  return view::View(
             view::Button{.title = "Check for Updates…", .action = [updater = updater] { updater->checkForUpdates(); }})
      .disabled(!_checkForUpdatesViewModel->canCheckForUpdates());
}

}  // namespace tarnwell::updates
