#include "updates/CheckForUpdatesView.h"

#include "view/controls/Button.h"

namespace tarnwell::updates {

CheckForUpdatesView::CheckForUpdatesView(kit::Updater& theUpdater)
    : _checkForUpdatesViewModel(std::make_shared<CheckForUpdatesViewModel>(theUpdater)), updater(&theUpdater) {}

view::View CheckForUpdatesView::body() const {
  return view::View(
             view::Button{.title = "Check for Updates…", .action = [updater = updater] { updater->checkForUpdates(); }})
      .disabled(!_checkForUpdatesViewModel->canCheckForUpdates());
}

}  // namespace tarnwell::updates
