#include "app/views/AlwaysOnTopSettingsView.h"

#include "kit/application/Application.h"
#include "kit/control/Window.h"

namespace tarnwell::app {

std::unique_ptr<view::HostingView> AlwaysOnTopSettingsView::makeNSView(Context& /*context*/) const {
  auto hostingView = std::make_unique<view::HostingView>(content);
  kit::Application::shared().events().async([view = hostingView->handle()] {
    kit::Window* window = *view != nullptr ? (*view)->window() : nullptr;
    if (window != nullptr) {
      window->setLevel(kit::Window::normalLevel);
    }
  });
  return hostingView;
}

void AlwaysOnTopSettingsView::updateNSView(view::HostingView& /*hostingView*/, Context& /*context*/) const {}

}  // namespace tarnwell::app
