/// Shows the Dock of which it is told on its standard input, and then the next one; its windows need not come and go as
/// often as the Dock is ended. It has another name, so that killall leaves it alone.

#include <sys/socket.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/dock/DockBehavior.h"
#include "standin/dock/UiProcess.h"
#include "standin/dock/ui/DockScene.h"
#include "standin/dock/ui/look/Appearance.h"
#include "standin/dock/ui/surface/WindowSurface.h"
#include "standin/dock/ui/surface/X11Surface.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

// Without a platform the toolkit would have the process abort, and it would be started again and again. So it
// shows nothing until its input ends.
void surviveFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  diagnostics::printErrorLine("Dock: " + text.toStdString());
  if (type == QtFatalMsg) {
    for (char record = 0; ::read(STDIN_FILENO, &record, 1) > 0;) {
    }
    ::_exit(EXIT_FAILURE);
  }
}

// An X11 server that lives in a Wayland desktop cannot hear of the pointer over the desktop's own windows.
std::unique_ptr<Surface> makeSurface() {
  if (QGuiApplication::platformName() == QStringLiteral("xcb") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    if (auto surface = X11Surface::open()) {
      return surface;
    }
  }
  return std::make_unique<WindowSurface>();
}

/// Shows the Dock of which it was told last, or none, on a surface that stays.
class DockUi {
 public:
  /// `socket` is what it is told on; the application ends with it. What becomes of the demonstration applications is
  /// kept in `deskPath`.
  DockUi(int socket, std::unique_ptr<Surface> surface, std::string deskPath)
      : surface_(std::move(surface)),
        deskPath_(std::move(deskPath)),
        appearance_([this](Scheme scheme) { setScheme(scheme); }),
        arrival_(socket, QSocketNotifier::Read) {
    // A desktop that does not answer at once is not waited for.
    constexpr std::chrono::milliseconds patience{40};
    QObject::connect(&arrival_, &QSocketNotifier::activated, &arrival_, [this] { hearAll(); });
    patience_.setSingleShot(true);
    QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { setScheme(scheme_.value_or(Scheme::light)); });
    patience_.start(appearance_.isAsked() ? patience : std::chrono::milliseconds(0));
  }

 private:
  // One record, or nothing where none has come yet; empty at the end.
  std::optional<std::string> nextRecord() const {
    constexpr std::size_t longest = 4096;
    std::string record(longest, '\0');
    const ssize_t length = ::recv(static_cast<int>(arrival_.socket()), record.data(), record.size(), MSG_DONTWAIT);
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) {
      return std::nullopt;
    }
    record.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return record;
  }

  // Of several Docks that came and went meanwhile, only the last one is shown.
  void hearAll() {
    while (const auto record = nextRecord()) {
      scene_.reset();
      if (record->empty()) {
        arrival_.setEnabled(false);
        return QCoreApplication::quit();
      }
      told_ = *record == noDock ? std::nullopt : std::optional(listedBehavior(*record));
    }
    begin();
  }

  void setScheme(Scheme scheme) {
    scheme_ = scheme;
    surface_->setScheme(scheme);
    if (scene_) {
      scene_->setScheme(scheme);
    }
    begin();
  }

  void begin() {
    if (!scene_ && told_ && scheme_) {
      scene_ = std::make_unique<DockScene>(*surface_, *told_, *scheme_, deskPath_);
    }
  }

  std::unique_ptr<Surface> surface_;
  std::string deskPath_;
  std::optional<DockBehavior> told_;
  std::unique_ptr<DockScene> scene_;
  std::optional<Scheme> scheme_;  // nothing while the desktop has not said
  QTimer patience_;
  Appearance appearance_;
  QSocketNotifier arrival_;
};

int run(int argc, char** argv) {
  diagnostics::prepareStandardStreams();
  const auto root = systemRoot();
  if (!root) {
    diagnostics::printErrorLine("dock-ui: " + root.error().message);
    return 1;
  }
  QCoreApplication::setApplicationName(QStringLiteral("Dock"));
  const QtMessageHandler usual = qInstallMessageHandler(surviveFatal);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const DockUi ui(STDIN_FILENO, makeSurface(), *root + "/Library/Application Support/Dock/desk");
  return QApplication::exec();
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) { return tarnwell::standin::run(argc, argv); }
