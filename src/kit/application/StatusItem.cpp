#include "kit/application/StatusItem.h"

#include <utility>

#include "kit/application/Application.h"
#include "kit/application/Platform.h"
#include "kit/menus/Menu.h"

namespace tarnwell::kit {

void StatusBarButton::setImage(Image image) {
  if (image != image_) {
    image_ = std::move(image);
    observers_.tell();
  }
}

StatusItem::StatusItem(Application& application, double length, std::string title)
    : application_(application), length_(length), title_(std::move(title)) {
  if (application_.platform().hasStatusButtons()) {
    button_ = std::make_shared<StatusBarButton>();
    peer_ = application_.platform().peer(*this);
  }
}

StatusItem::~StatusItem() = default;

void StatusItem::setMenu(std::shared_ptr<Menu> menu) {
  if (menu != menu_) {
    menu_ = std::move(menu);
    if (peer_) {
      peer_->menuChanged();
    }
  }
}

void StatusItem::performClick() { click(Event::Type::leftMouseUp); }

void StatusItem::mouseUp(Event::Type type) {
  application_.events().send({.type = type}, [this, type] { click(type); });
}

void StatusItem::click(Event::Type type) {
  if (!button_) {
    return;
  }
  if (const auto menu = menu_) {
    application_.responders().trackMenu(*menu, [this, menu] { peer_->popUp(*menu); });
  } else if ((button_->mask() & maskOf(type)) != 0) {
    // A copy: the action may end the item.
    const auto button = button_;
    application_.responders().sendAction(button->action(), button->target(), button.get());
  }
}

}  // namespace tarnwell::kit
