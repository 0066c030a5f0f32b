#pragma once

#include <memory>

#include "kit/ports/Updater.h"
#include "view/state/ObservableObject.h"

namespace tarnwell::updates {

/// The one holder of the updater controller, handed to every view that needs the updater.
class UpdaterEnv final : public view::ObservableObject {
 public:
  static constexpr const char* typeName = "UpdaterEnv";

  /// Makes the controller and so starts the updater. Without the shared application that is a fault.
  UpdaterEnv();
  ~UpdaterEnv() override;

  /// To be asked for anew each time: it may be replaced.
  kit::UpdaterController& updaterController() const { return *updaterController_; }
  /// Never null. The controller that it replaces lives until every view has turned to the new one.
  void setUpdaterController(std::unique_ptr<kit::UpdaterController> controller);

 private:
  std::unique_ptr<kit::UpdaterController> updaterController_;
};

}  // namespace tarnwell::updates
