#include "standin/dock/ui/DockUi.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QtWidgets/QApplication>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "diagnostics/Console.h"
#include "standin/dock/UiProcess.h"
#include "standin/dock/ui/WindowSurface.h"
#include "standin/dock/ui/X11Surface.h"

namespace tarnwell::standin {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value == nullptr ? "" : value;
}

// One record, or nothing where none has come yet; empty at the end.
std::optional<std::string> nextRecord(int socket, int flags) {
  constexpr std::size_t longest = 4096;
  std::string record(longest, '\0');
  const ssize_t length = ::recv(socket, record.data(), record.size(), flags);
  if (length < 0 && (errno == EAGAIN || errno == EINTR)) {
    return std::nullopt;
  }
  record.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return record;
}

// Without a platform the toolkit would have the process abort, and it would be started again and again.
void surviveFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  diagnostics::printErrorLine("Dock: " + text.toStdString());
  if (type == QtFatalMsg) {
    while (nextRecord(STDIN_FILENO, 0) != "") {
    }
    ::_exit(EXIT_FAILURE);
  }
}

// An X11 server that lives in a Wayland desktop cannot hear of the pointer over the desktop's own windows.
std::unique_ptr<Surface> makeSurface() {
  if (QGuiApplication::platformName() == QStringLiteral("xcb") && variable("WAYLAND_DISPLAY").empty()) {
    if (auto surface = X11Surface::open()) {
      return surface;
    }
  }
  return std::make_unique<WindowSurface>();
}

}  // namespace

DockUi::DockUi(int socket, std::unique_ptr<Surface> surface, std::string deskPath)
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

// Of several Docks that came and went meanwhile, only the last one is shown.
void DockUi::hearAll() {
  while (const auto record = nextRecord(static_cast<int>(arrival_.socket()), MSG_DONTWAIT)) {
    scene_.reset();
    if (record->empty()) {
      arrival_.setEnabled(false);
      return QCoreApplication::quit();
    }
    told_ = *record == noDock ? std::nullopt : std::optional(listedBehavior(*record));
  }
  begin();
}

void DockUi::setScheme(Scheme scheme) {
  scheme_ = scheme;
  surface_->setScheme(scheme);
  if (scene_) {
    scene_->setScheme(scheme);
  }
  begin();
}

void DockUi::begin() {
  if (!scene_ && told_ && scheme_) {
    scene_ = std::make_unique<DockScene>(*surface_, *told_, *scheme_, deskPath_);
  }
}

int showUi(int& argc, char** argv, const std::string& deskPath) {
  QCoreApplication::setApplicationName(QStringLiteral("Dock"));
  const QtMessageHandler usual = qInstallMessageHandler(surviveFatal);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const DockUi ui(STDIN_FILENO, makeSurface(), deskPath);
  return QApplication::exec();
}

}  // namespace tarnwell::standin
