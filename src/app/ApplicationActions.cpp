#include "app/ApplicationActions.h"

#include "kit/application/Application.h"

namespace tarnwell::app {
void showAboutPanel() { kit::Application::shared().perform("orderFrontStandardAboutPanel:", nullptr); }

void terminate() { kit::Application::shared().terminate(nullptr); }

}  // namespace tarnwell::app
