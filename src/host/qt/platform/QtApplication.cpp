#include "host/qt/platform/QtApplication.h"

#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>
#include <cstdlib>

#include "diagnostics/Console.h"
#include "host/linux/start/StartProgram.h"
#include "host/qt/bus/SessionBus.h"
#include "host/qt/look/ApplicationStyle.h"

namespace tarnwell::host_qt {
namespace {

bool displayIsNamed() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

// While the toolkit connects to the display: it would explain itself at length and abort.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
  if (type == QtFatalMsg) {
    diagnostics::reportError("cannot connect to the display");
    std::_Exit(EXIT_FAILURE);
  }
}

int& prepared(int& argc) {
  qInstallMessageHandler(&endWithoutDisplay);
  QApplication::setStyle(new ApplicationStyle);
  return argc;
}

}  // namespace

std::unique_ptr<QtApplication> QtApplication::create(int argc, char** argv) {
  if (!displayIsNamed()) {
    diagnostics::reportError("there is no display; neither DISPLAY nor WAYLAND_DISPLAY is set");
    return nullptr;
  }
  const SessionBusStart bus;
  return std::unique_ptr<QtApplication>(new QtApplication(argc, argv));
}

QtApplication::QtApplication(int argc, char** argv) : argc_(argc), application_(prepared(argc_), argv) {
  qInstallMessageHandler(nullptr);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setQuitLockEnabled(false);
  reaping_ = watch(openers_.descriptor(), [this] { openers_.reap(); });
}

QtApplication::~QtApplication() = default;

kit::Subscription QtApplication::watch(int descriptor, kit::Action readable) {
  auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, &application_);
  QObject::connect(notifier, &QSocketNotifier::activated, &application_,
                   [readable = std::move(readable)]() noexcept { readable(); });
  return kit::Subscription([known = QPointer(notifier)] {
    if (known) {
      // It may be what is being heard.
      known->setEnabled(false);
      known->deleteLater();
    }
  });
}

void QtApplication::openUrl(const std::string& address) {
  auto opener = host_linux::startProgram({"xdg-open", address});
  if (!opener) {
    diagnostics::reportError("cannot open " + address + ": " + opener.error().message);
  } else {
    openers_.watch(*std::move(opener));
  }
}

int QtApplication::run() {
  isQuitting_ = false;
  return QApplication::exec();
}

void QtApplication::quit(int status) {
  isQuitting_ = true;
  // Not quit(): that asks every window first.
  QCoreApplication::exit(status);
}

}  // namespace tarnwell::host_qt
