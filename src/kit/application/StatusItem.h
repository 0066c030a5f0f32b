#pragma once

#include <memory>
#include <optional>
#include <string>

#include "kit/events/Event.h"
#include "kit/host/StatusItemPeer.h"
#include "kit/turn/Object.h"
#include "kit/turn/Observers.h"

namespace tarnwell::kit {

class Application;
class Menu;

/// The clickable part of a status item.
class StatusBarButton final : public Object {
 public:
  /// A symbol of the system's set.
  struct Image {
    std::string symbol = {};
    std::optional<std::string> accessibilityDescription = std::nullopt;
    friend bool operator==(const Image&, const Image&) = default;
  };

  const Image& image() const { return image_; }
  void setImage(Image image);

  void setAction(Selector action) { action_ = std::move(action); }
  void setTarget(const std::shared_ptr<Object>& target) { target_ = target; }
  /// Which releases send the action, as the sum of `maskOf` each; the left one unless set.
  void sendActionOn(unsigned mask) { mask_ = mask; }

  const Selector& action() const { return action_; }
  std::shared_ptr<Object> target() const { return target_.lock(); }
  unsigned mask() const { return mask_; }

  [[nodiscard]] Subscription observe(std::function<void()> changed) { return observers_.add(std::move(changed)); }

 private:
  Image image_;
  Selector action_;
  std::weak_ptr<Object> target_;
  unsigned mask_ = maskOf(Event::Type::leftMouseUp);
  Observers<> observers_;
};

/// An icon in the system's status bar. With a menu attached, a click of either button opens it; without one, the
/// button's action is sent.
class StatusItem final {
 public:
  static constexpr double variableLength = -1;

  StatusItem(Application& application, double length, std::string title);
  StatusItem(const StatusItem&) = delete;
  StatusItem& operator=(const StatusItem&) = delete;
  ~StatusItem();

  Application& application() const { return application_; }
  double length() const { return length_; }
  const std::string& title() const { return title_; }

  /// Null where the host gives none.
  const std::shared_ptr<StatusBarButton>& button() const { return button_; }

  const std::shared_ptr<Menu>& menu() const { return menu_; }
  /// Null detaches.
  void setMenu(std::shared_ptr<Menu> menu);

  /// As if the button had been clicked with the left mouse button; returns when a menu that opened has closed.
  void performClick();

  /// The user's doing: a button of the mouse was released over the icon, and the platform did nothing itself.
  void mouseUp(Event::Type type);

 private:
  void click(Event::Type type);

  Application& application_;
  double length_;
  std::string title_;
  std::shared_ptr<StatusBarButton> button_;
  std::shared_ptr<Menu> menu_;
  std::unique_ptr<StatusItemPeer> peer_;
};

}  // namespace tarnwell::kit
