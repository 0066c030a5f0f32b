#pragma once

#include "host/macos/HeadlessServices.h"
#include "host/macos/Toolkit.h"
#include "kit/application/Application.h"
#include "kit/menus/Menu.h"

namespace tarnwell::host_macos {

/// The platform's application comes first.
struct StartedToolkit {
  StartedToolkit() { startToolkit(); }
};

/// An application on the platform, which has not finished launching.
struct Stage : StartedToolkit {
  HeadlessServices headless = {};
  MacPlatform platform{{.name = "Stage"}, headless.services()};
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
};

/// An entry that runs a closure.
inline std::shared_ptr<kit::MenuItem> entry(const std::string& title, kit::Action handler) {
  auto item = kit::MenuItem::create(title, {}, {});
  item->setHandler(std::move(handler));
  return item;
}

}  // namespace tarnwell::host_macos
