#include "app/views/ApplicationActions.h"

#include "kit/application/Application.h"

namespace tarnwell::app {

void showAboutPanel() { kit::Application::shared().perform(kit::selectors::orderFrontStandardAboutPanel, nullptr); }

void terminate() { kit::Application::shared().perform(kit::selectors::terminate, nullptr); }

}  // namespace tarnwell::app
