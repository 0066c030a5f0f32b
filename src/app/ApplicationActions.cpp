#include "app/ApplicationActions.h"

#include "diagnostics/Fault.h"
#include "kit/application/Application.h"

namespace tarnwell::app {
namespace {

kit::Application& application() {
  kit::Application* shared = kit::Application::shared();
  if (shared == nullptr) {
    diagnostics::fault("a menu entry was chosen, but there is no application");
  }
  return *shared;
}

}  // namespace

void showAboutPanel() { application().orderFrontStandardAboutPanel(nullptr); }

void terminate() { application().terminate(nullptr); }

}  // namespace tarnwell::app
