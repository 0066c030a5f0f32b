#include "about/AboutWindow.h"

#include <memory>

#include "about/AboutView.h"
#include "kit/application/Platform.h"
#include "view/scenes/Panel.h"

namespace tarnwell::about {

void orderFrontAboutWindow(kit::Application& application, bool takesKeyboard) {
  const auto panel = application.single<view::Panel>([&application] {
    const kit::Product& product = application.platform().product();
    return std::make_shared<view::Panel>(application, "about", "About " + product.name, AboutView{product});
  });
  panel->orderFront(takesKeyboard);
}

}  // namespace tarnwell::about
