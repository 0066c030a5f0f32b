#include "updates/GeneralView.h"

#include "launchatlogin/Toggle.h"
#include "updates/CheckForUpdatesView.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Text.h"

namespace tarnwell::updates {
namespace {

using view::View;

View switchRow(const std::string& title, view::Binding<bool> isOn) {
  return view::LabeledRow{
      .label = view::Text{title}, .title = title, .control = view::Toggle{.title = title, .isOn = std::move(isOn)}};
}

kit::Updater& updaterOf(const std::shared_ptr<UpdaterEnv>& environment) {
  return environment->updaterController().updater();
}

}  // namespace

View GeneralView::body() const {
  const View form =
      view::Form{.sections = {view::Section{.rows = {launchatlogin::LaunchAtLogin::Toggle()}},
                              view::Section{.rows = {checkSwitch(), downloadSwitch()},
                                            .footer = CheckForUpdatesView(updaterOf(_updaterEnv.get()))}}};
  return form.onAppear([updaterEnv = _updaterEnv.get(), checks = _checkForUpdatesAuto.binding(),
                        downloads = _autoDownloadUpdates.binding()] {
    checks.set(updaterOf(updaterEnv).automaticallyChecksForUpdates());
    downloads.set(updaterOf(updaterEnv).automaticallyDownloadsUpdates());
  });
}

View GeneralView::checkSwitch() const {
  return switchRow("Check for updates automatically", _checkForUpdatesAuto.binding())
      .onChange<bool>(_checkForUpdatesAuto.get(), [updaterEnv = _updaterEnv.get()](const bool& checks) {
        updaterOf(updaterEnv).setAutomaticallyChecksForUpdates(checks);
      });
}

View GeneralView::downloadSwitch() const {
  return switchRow("Download updates automatically", _autoDownloadUpdates.binding())
      .onChange<bool>(_autoDownloadUpdates.get(), [updaterEnv = _updaterEnv.get()](const bool& downloads) {
        updaterOf(updaterEnv).setAutomaticallyDownloadsUpdates(downloads);
      });
}

}  // namespace tarnwell::updates
