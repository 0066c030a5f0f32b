#pragma once

#include "host/linux/JournalLog.h"
#include "host/linux/XdgLoginItem.h"
#include "host/linux/start/ProcessSetup.h"
#include "host/qt/platform/QtPlatform.h"
#include "updateclient/settings/UpdateSource.h"

namespace tarnwell::host_qt {

/// What a desktop's toolkit cannot answer, answered by the Linux system below it.
class DesktopServices {
 public:
  DesktopServices(const kit::Product& product, const host_linux::ProcessSetup& start,
                  updateclient::UpdateSource updates);

  /// What is pointed to in it lives as long as this object.
  QtPlatform::Services services();

 private:
  kit::Product product_;
  host_linux::ProcessSetup start_;
  updateclient::UpdateSource updates_;
  host_linux::XdgLoginItem loginItem_;
  host_linux::JournalLog log_;
};

}  // namespace tarnwell::host_qt
