#include "host/qt/tray/XEmbedTray.h"

#include <QtCore/QCoreApplication>
#include <string>
#include <utility>

#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {

std::unique_ptr<XEmbedTray> XEmbedTray::create(kit::Action changed) {
  return x11Display() != nullptr ? std::unique_ptr<XEmbedTray>(new XEmbedTray(std::move(changed))) : nullptr;
}

XEmbedTray::XEmbedTray(kit::Action changed) : changed_(std::move(changed)) {
  // Both are asked for before the first answer is awaited.
  const auto manager = askForAtom("MANAGER");
  const auto selection = askForAtom("_NET_SYSTEM_TRAY_S" + std::to_string(x11ScreenNumber()));
  managerAtom_ = atomOf(manager);
  selection_ = atomOf(selection);
  findOwner();
  QCoreApplication::instance()->installNativeEventFilter(this);
}

XEmbedTray::~XEmbedTray() {
  if (QCoreApplication* application = QCoreApplication::instance()) {
    application->removeNativeEventFilter(this);
  }
}

bool XEmbedTray::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) noexcept {
  if (type == "xcb_generic_event_t" && isAboutTray(message)) {
    findOwner();
    changed_();
  }
  return false;
}

bool XEmbedTray::isAboutTray(const void* event) const {
  constexpr unsigned sentByProgram = 0x80;
  const unsigned type = static_cast<const xcb_generic_event_t*>(event)->response_type & ~sentByProgram;
  if (type == XCB_CLIENT_MESSAGE) {
    const auto* told = static_cast<const xcb_client_message_event_t*>(event);
    return told->type == managerAtom_ && told->data.data32[1] == selection_;
  }
  return type == XCB_DESTROY_NOTIFY && static_cast<const xcb_destroy_notify_event_t*>(event)->window == owner_;
}

void XEmbedTray::findOwner() {
  const XcbReply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(x11Display(), xcb_get_selection_owner(x11Display(), selection_), nullptr));
  owner_ = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
  if (owner_ != XCB_WINDOW_NONE) {
    // So that its end is told.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x11Display(), owner_, XCB_CW_EVENT_MASK, &events);
  }
}

}  // namespace tarnwell::host_qt
