#include "view/scenes/Panel.h"

#include "kit/application/Platform.h"

namespace tarnwell::view {

Panel::Panel(kit::Application& application, const std::string& identifier, const std::string& title,
             const View& content, const EnvironmentValues& environment)
    : application_(application),
      hosted_(application.turn(), application.platform().host(),
              {.identifier = identifier,
               .title = title,
               .view = content,
               .environment = environment,
               .kind = kit::Window::Kind::panel}) {
  window().setCloseAction([this] { close(); });
}

Panel::~Panel() { application_.windows().remove(window()); }

void Panel::orderFront(bool takesKeyboard) {
  application_.turn().perform([this, takesKeyboard] {
    window().setTakesKeyboard(takesKeyboard);
    if (window().isVisible()) {
      window().peer()->orderFront();
    } else {
      hosted_.open();
    }
  });
}

void Panel::close() {
  application_.turn().perform([this] {
    application_.windows().remove(window());
    hosted_.close();
  });
}

}  // namespace tarnwell::view
