#include "host/qt/session/ActivationToken.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>
#include <cstdlib>
#include <utility>

#include "host/qt/session/RunLater.h"
#include "host/qt/session/X11Activation.h"
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
