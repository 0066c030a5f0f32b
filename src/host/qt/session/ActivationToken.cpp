#include "host/qt/session/ActivationToken.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "host/qt/session/RunLater.h"
#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {
namespace {

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

// No desktop's is nearly as long, and no program could be started with a variable without measure.
constexpr std::size_t longestToken = 4096;

// On X11 alone; the toolkit keeps Wayland's.
std::string keptToken;

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// Asks a Wayland desktop for the keyboard, which takes no notice of a window without a picture, though the permission
/// is spent. What is shown but out of sight may be asked for: the toolkit calls it no more exposed than one that is to
/// come.
class WaylandActivation final : public QObject {
 public:
  /// That of a window which has been shown.
  static WaylandActivation& of(QWidget& window) {
    for (QObject* child : window.children()) {
      if (auto* known = dynamic_cast<WaylandActivation*>(child)) {
        return *known;
      }
    }
    return *new WaylandActivation(window);
  }

  void ask() {
    if (hasPicture_) {
      window_.activateWindow();
    } else {
      isAsked_ = true;
    }
  }

  bool eventFilter(QObject* /*object*/, QEvent* event) noexcept override {
    if (event->type() == QEvent::Hide) {
      hasPicture_ = isAsked_ = false;
    } else if (event->type() == QEvent::Expose && window_.windowHandle()->isExposed()) {
      hasPicture_ = true;
      if (std::exchange(isAsked_, false)) {
        // Behind the first picture, which is painted now.
        runLater(*this, [this] { window_.activateWindow(); });
      }
    }
    return false;
  }

 private:
  explicit WaylandActivation(QWidget& window)
      : QObject(&window), window_(window), hasPicture_(window.windowHandle()->isExposed()) {
    window.windowHandle()->installEventFilter(this);
  }

  QWidget& window_;
  bool hasPicture_;
  bool isAsked_ = false;
};

constexpr std::uint32_t fromApplication = 1;
constexpr std::size_t chunkSize = 20;

// The time of the user's action, which stands at the end of the identifier.
xcb_timestamp_t timeOf(const std::string& startupId) {
  const std::string mark = "_TIME";
  const std::size_t found = startupId.rfind(mark);
  xcb_timestamp_t time = XCB_CURRENT_TIME;
  if (found != std::string::npos) {
    std::from_chars(startupId.data() + found + mark.size(), startupId.data() + startupId.size(), time);
  }
  return time;
}

void sendToRoot(const xcb_client_message_event_t& event, std::uint32_t mask) {
  xcb_send_event(x11Display(), 0, x11RootWindow(), mask, reinterpret_cast<const char*>(&event));
}

void askToActivate(xcb_window_t window, xcb_timestamp_t time) {
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = atomOf(askForAtom("_NET_ACTIVE_WINDOW"));
  event.data.data32[0] = fromApplication;
  event.data.data32[1] = time;
  sendToRoot(event, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

std::string quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
    }
    quoted += c;
  }
  return quoted + '"';
}

// The message is cut into pieces; the last one holds the zero at its end.
void sayThatStartIsComplete(xcb_window_t window, const std::string& startupId) {
  const auto first = askForAtom("_NET_STARTUP_INFO_BEGIN");
  const auto further = askForAtom("_NET_STARTUP_INFO");
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 8;
  event.window = window;
  event.type = atomOf(first);
  const xcb_atom_t furtherType = atomOf(further);
  const std::string message = "remove: ID=" + quoted(startupId) + '\0';
  for (std::size_t at = 0; at < message.size(); at += chunkSize) {
    std::ranges::fill(event.data.data8, std::uint8_t{0});
    std::ranges::copy(message.substr(at, chunkSize), event.data.data8);
    sendToRoot(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
    event.type = furtherType;
  }
}

// Asks an X11 window manager to activate the window with the time that is in the identifier, and says that the start
// which it names is complete.
void activateX11Window(WId window, const std::string& startupId) {
  askToActivate(static_cast<xcb_window_t>(window), timeOf(startupId));
  sayThatStartIsComplete(static_cast<xcb_window_t>(window), startupId);
  xcb_flush(x11Display());
}

}  // namespace

std::string givenActivationToken() {
  const std::string token = variable(tokenVariable);
  return token.empty() ? variable("DESKTOP_STARTUP_ID") : token;
}

void useActivationToken(const std::string& token) {
  if (token.empty() || token.size() > longestToken) {
    return;
  }
  if (x11Display() != nullptr) {
    keptToken = token;
  } else {
    // Where the toolkit looks for it when a window asks to be activated.
    ::setenv(tokenVariable, token.c_str(), 1);
  }
}

void bringToFront(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.raise();
  if (x11Display() == nullptr && window.windowHandle() != nullptr) {
    WaylandActivation::of(window).ask();
    return;
  }
  window.activateWindow();
  if (const std::string token = std::exchange(keptToken, {}); !token.empty()) {
    activateX11Window(window.winId(), token);
  }
}

}  // namespace tarnwell::host_qt
