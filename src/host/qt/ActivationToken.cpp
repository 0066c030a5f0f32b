#include "host/qt/ActivationToken.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>
#include <cstdlib>
#include <utility>

#include "host/qt/RunLater.h"
#include "host/qt/X11Activation.h"
#include "host/qt/X11Display.h"

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

bool isStillToCome(const QWidget& window) {
  return window.windowHandle() != nullptr && !window.windowHandle()->isExposed();
}

/// Asks for the keyboard when the window stands, once.
class ActivationToCome final : public QObject {
 public:
  explicit ActivationToCome(QWidget& window) : QObject(&window), window_(window) {
    window.windowHandle()->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) noexcept override {
    if (event->type() == QEvent::Expose && !isStillToCome(window_)) {
      object->removeEventFilter(this);
      deleteLater();
      // Behind the first picture, which is painted now.
      runLater(window_, [&window = window_] { window.activateWindow(); });
    }
    return false;
  }

 private:
  QWidget& window_;
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
  if (x11Display() == nullptr && isStillToCome(window)) {
    // A Wayland desktop takes no notice of a window without a picture, and the permission would be spent.
    new ActivationToCome(window);
    return;
  }
  window.activateWindow();
  if (const std::string token = std::exchange(keptToken, {}); !token.empty()) {
    activateX11Window(window.winId(), token);
  }
}

}  // namespace tarnwell::host_qt
