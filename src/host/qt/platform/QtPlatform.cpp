#include "host/qt/platform/QtPlatform.h"

#include <QtCore/QThread>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <utility>

#include "about/AboutWindow.h"
#include "host/qt/bus/SessionBus.h"
#include "host/qt/look/ApplicationIcon.h"
#include "host/qt/menus/MenuBar.h"
#include "host/qt/session/ActivationToken.h"
#include "host/qt/session/KeyboardFocus.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/tray/StatusIcon.h"
#include "host/qt/tray/TrayNotice.h"
#include "host/qt/window/WindowWidget.h"
#include "kit/application/Application.h"
#include "kit/control/Window.h"
#include "kit/ports/Updater.h"

namespace tarnwell::host_qt {
namespace {

std::weak_ptr<kit::Application> weak(kit::Application& application) {
  return std::static_pointer_cast<kit::Application>(application.shared_from_this());
}

template <class Visit>
void forEachWindow(const Visit& visit) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = dynamic_cast<WindowWidget*>(widget);
    if (window != nullptr && window->kitWindow() != nullptr) {
      visit(*window);
    }
  }
}

// The bars stand beside the content, so their heights come first.
void takeMetrics() {
  forEachWindow([](WindowWidget& window) {
    for (QObject* child : window.children()) {
      if (auto* bar = dynamic_cast<MenuBar*>(child)) {
        bar->takeFont();
      }
    }
    WindowPeer::chromeChanged(window);
  });
}

}  // namespace

QtPlatform::QtPlatform(QtApplication& application, Services services)
    : application_(application),
      services_(std::move(services)),
      startup_(services_.longestWait),
      portal_(sessionBus(), host().theme(), startup_),
      tray_(sessionBus(), startup_) {
  QApplication::setApplicationName(QString::fromStdString(services_.product.name));
  QApplication::setApplicationVersion(QString::fromStdString(services_.product.version));
  QApplication::setDesktopFileName(QString::fromStdString(services_.product.identifier));
  QApplication::setWindowIcon(applicationIcon());
  host().setMetricsChanged([] { takeMetrics(); });
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &context_,
                   []() noexcept { WindowPeer::tellKeyWindow(); });
  // However the loop ends.
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, &context_, []() noexcept {
    if (kit::Application::isThere()) {
      kit::Application::shared().willTerminate();
    }
  });
}

QtPlatform::~QtPlatform() {
  host().setKeyEquivalents({});
  host().setChromeMaker({});
  host().setMetricsChanged({});
}

int QtPlatform::run(kit::Application& application) {
  launch(application);
  return application_.run();
}

kit::Subscription QtPlatform::watch(int descriptor, kit::Action readable) {
  return application_.watch(descriptor, std::move(readable));
}

void QtPlatform::launch(kit::Application& application) {
  currentEvent_ = services_.launchEvent;
  application.finishLaunching();
  currentEvent_.reset();
}

void QtPlatform::wakeUp(kit::Application& application) {
  if (std::exchange(turnIsDue_, true)) {
    return;
  }
  runLater(context_, [this, woken = weak(application)] {
    turnIsDue_ = false;
    if (const auto alive = woken.lock()) {
      alive->events().runTurn();
    }
  });
}

// A window that is still to come asks for the keyboard itself, when it stands.
void QtPlatform::activateIgnoringOtherApps() {
  forEachWindow([](WindowWidget& window) {
    // Panels stay with what they were opened for, without the keyboard perhaps.
    if (window.isVisible() && window.kitWindow()->kind() == kit::Window::Kind::standard) {
      bringToFront(window);
    }
  });
}

void QtPlatform::reopen(const std::string& token) {
  useActivationToken(token);
  if (kit::Application::isThere()) {
    kit::Application::shared().reopen();
  }
  activateIgnoringOtherApps();
}

void QtPlatform::terminate(kit::Application& /*application*/) {
  if (QThread::currentThread()->loopLevel() > 0) {
    application_.quit();
  } else {
    // A loop that has not begun yet would not hear of it.
    runLater(context_, [this] { application_.quit(); });
  }
}

void QtPlatform::startAgainAtEnd() {
  if (services_.startAgainAtEnd) {
    services_.startAgainAtEnd();
  }
}

void QtPlatform::orderFrontStandardAboutPanel(kit::Application& application) {
  about::orderFrontAboutWindow(application, hasKeyboard());
}

void QtPlatform::openUrl(const std::string& address) { application_.openUrl(address); }

void QtPlatform::showMainMenu(kit::Application& application) {
  host().setKeyEquivalents([known = weak(application)](const kit::KeyEvent& event) {
    const auto alive = known.lock();
    return alive && alive->responders().performKeyEquivalent(event);
  });
  host().setChromeMaker([this](kit::Window& window, QWidget& parent) { return makeChrome(window, parent); });
}

std::unique_ptr<kit::StatusItemPeer> QtPlatform::peer(kit::StatusItem& item) {
  return std::make_unique<StatusIcon>(item, tray_, host().theme());
}

std::unique_ptr<kit::UpdaterController> QtPlatform::makeUpdaterController(
    kit::Application& application, const kit::UpdaterControllerArguments& arguments) {
  return services_.makeUpdaterController(application, arguments);
}

std::optional<WindowChrome> QtPlatform::makeChrome(kit::Window& window, QWidget& parent) {
  if (window.identifier() != services_.menuWindow) {
    return std::nullopt;
  }
  return WindowChrome{.above = new MenuBar(kit::Application::shared(), host().theme(), parent),
                      .below = new TrayNotice(services_.product.name, host().theme(), host(), tray_, parent)};
}

}  // namespace tarnwell::host_qt
