#pragma once

#include <QtCore/QSocketNotifier>
#include <memory>
#include <optional>
#include <string>

#include "standin/dock/DockBehavior.h"
#include "standin/dock/ui/Appearance.h"
#include "standin/dock/ui/DockScene.h"
#include "standin/dock/ui/Surface.h"

namespace tarnwell::standin {

/// Shows the Dock of which it was told last, or none, on a surface that stays.
class DockUi {
 public:
  /// `socket` is what it is told on; the application ends with it. What becomes of the demonstration applications is
  /// kept in `deskPath`.
  DockUi(int socket, std::unique_ptr<Surface> surface, std::string deskPath);

 private:
  void hearAll();
  void setScheme(Scheme scheme);
  void begin();

  std::unique_ptr<Surface> surface_;
  std::string deskPath_;
  std::optional<DockBehavior> told_;
  std::unique_ptr<DockScene> scene_;
  std::optional<Scheme> scheme_;  // nothing while the desktop has not said
  Appearance appearance_;
  QSocketNotifier arrival_;
};

}  // namespace tarnwell::standin
