#pragma once

namespace tarnwell::kit {

class Menu;

/// A host's side of a status item.
class StatusItemPeer {
 public:
  StatusItemPeer() = default;
  StatusItemPeer(const StatusItemPeer&) = delete;
  StatusItemPeer& operator=(const StatusItemPeer&) = delete;
  virtual ~StatusItemPeer() = default;

  /// Shows `menu` at the icon and returns when it has closed.
  virtual void popUp(Menu& menu) = 0;

  /// The item has another menu, or none. A platform that opens menus by itself is given it now; it then tells of no
  /// `mouseUp` there, but the responder chain of what becomes of the menu.
  virtual void menuChanged() {}
};

}  // namespace tarnwell::kit
