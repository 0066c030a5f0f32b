#pragma once

#include <QtCore/QAbstractNativeEventFilter>
#include <cstdint>
#include <memory>

#include "kit/turn/Action.h"

namespace tarnwell::host_qt {

/// The older kind of tray, which X11 panels have: a window that takes icons in.
class XEmbedTray final : public QAbstractNativeEventFilter {
 public:
  /// Null where the display is not X11. `changed` is run from the event loop when a tray came or went.
  static std::unique_ptr<XEmbedTray> create(kit::Action changed);
  XEmbedTray(const XEmbedTray&) = delete;
  XEmbedTray& operator=(const XEmbedTray&) = delete;
  ~XEmbedTray() override;

  bool exists() const { return owner_ != 0; }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) noexcept override;

 private:
  explicit XEmbedTray(kit::Action changed);

  bool isAboutTray(const void* event) const;
  void findOwner();

  kit::Action changed_;
  std::uint32_t managerAtom_ = 0;
  std::uint32_t selection_ = 0;
  std::uint32_t owner_ = 0;
};

}  // namespace tarnwell::host_qt
