#include "standin/dock/ui/DockUi.h"

#include <sys/socket.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <cerrno>
#include <chrono>
#include <utility>

#include "standin/dock/UiProcess.h"

namespace tarnwell::standin {
namespace {

// One record, or nothing where none has come yet; empty at the end.
std::optional<std::string> nextRecord(int socket) {
  constexpr std::size_t longest = 4096;
  std::string record(longest, '\0');
  const ssize_t length = ::recv(socket, record.data(), record.size(), MSG_DONTWAIT);
  if (length < 0 && (errno == EAGAIN || errno == EINTR)) {
    return std::nullopt;
  }
  record.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return record;
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
  QTimer::singleShot(appearance_.isAsked() ? patience : std::chrono::milliseconds(0), &arrival_,
                     [this] { setScheme(scheme_.value_or(Scheme::light)); });
}

// Of several Docks that came and went meanwhile, only the last one is shown.
void DockUi::hearAll() {
  while (const auto record = nextRecord(static_cast<int>(arrival_.socket()))) {
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

}  // namespace tarnwell::standin
