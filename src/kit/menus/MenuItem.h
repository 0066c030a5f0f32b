#pragma once

#include <memory>
#include <string>

#include "kit/events/Event.h"
#include "kit/turn/Action.h"
#include "kit/turn/Object.h"

namespace tarnwell::kit {

class Menu;

/// One entry of a menu. Its action is a selector, sent to the target or, without one, up the responder chain; or a
/// closure, for entries that a view made.
class MenuItem final : public Object {
 public:
  struct KeyEquivalent {
    std::string key = {};  ///< Compared as it is: "Q" is not "q". Empty for none.
    /// With Shift where it has to be held. A host that shows every letter in upper case has no other sign of it.
    unsigned modifierFlags = commandFlag;
    friend bool operator==(const KeyEquivalent&, const KeyEquivalent&) = default;
  };

  /// An entry with a selector, which may be empty; its key goes with Command.
  static std::shared_ptr<MenuItem> create(std::string title, Selector action, std::string keyEquivalent);
  /// One whose action is the platform's own: "copy:", "hide:".
  static std::shared_ptr<MenuItem> platformItem(std::string title, Selector action, KeyEquivalent keyEquivalent);
  static std::shared_ptr<MenuItem> separatorItem();
  static std::shared_ptr<MenuItem> withSubmenu(std::string title, std::shared_ptr<Menu> submenu);

  const std::string& title() const { return title_; }
  void setTitle(std::string title);

  bool isSeparator() const { return separator_; }

  const Selector& action() const { return action_; }
  std::shared_ptr<Object> target() const { return target_.lock(); }
  void setTarget(const std::shared_ptr<Object>& target) { target_ = target; }

  /// A platform with a responder chain of its own, in which windows and fields stand that are not the application's,
  /// sends the action there, and asks there whether it can be chosen. Elsewhere it is an entry like any other.
  bool isPlatforms() const { return platforms_; }

  const Action& handler() const { return handler_; }
  void setHandler(Action handler) { handler_ = std::move(handler); }

  const KeyEquivalent& keyEquivalent() const { return keyEquivalent_; }
  void setKeyEquivalent(KeyEquivalent equivalent);
  bool matches(const KeyEvent& event) const;

  /// As set. Whether an untargeted entry can be chosen depends on the responder chain too: ask the application.
  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);

  const std::shared_ptr<Menu>& submenu() const { return submenu_; }

  /// Told after each change.
  void setChangeAction(Action changed) { changed_ = std::move(changed); }

 private:
  void changed() const;

  std::string title_;
  Selector action_;
  std::weak_ptr<Object> target_;
  Action handler_;
  KeyEquivalent keyEquivalent_;
  std::shared_ptr<Menu> submenu_;
  Action changed_;
  bool separator_ = false;
  bool platforms_ = false;
  bool enabled_ = true;
};

}  // namespace tarnwell::kit
