#include "host/qt/platform/SingleInstance.h"

#include <QtCore/QCoreApplication>
#include <utility>

#include "diagnostics/Console.h"
#include "host/qt/bus/SessionBus.h"
#include "host/qt/platform/QtApplication.h"
#include "host/qt/session/ActivationToken.h"
#include "host/qt/session/AfterInput.h"

namespace tarnwell::host_qt {
namespace {

// The other one may end between being found and being asked.
constexpr int tries = 3;

}  // namespace

std::unique_ptr<SingleInstance> SingleInstance::claim(const kit::Product& product) {
  const std::string token = givenActivationToken();
  auto claimed = host_linux::InstanceSocket::claim(product.program, token);
  if (!claimed) {
    diagnostics::reportError("cannot tell whether another " + product.name + " is running: " + claimed.error().message);
    return std::unique_ptr<SingleInstance>(new SingleInstance(product.identifier, token, nullptr));
  }
  auto socket = *std::move(claimed);
  return socket ? std::unique_ptr<SingleInstance>(new SingleInstance(product.identifier, token, std::move(socket)))
                : nullptr;
}

bool SingleInstance::listen(QtApplication& application) {
  application_ = &application;
  useActivationToken(token_);
  if (socket_) {
    hearing_ = application.watch(socket_->descriptor(), [this] {
      if (const auto token = socket_->receive()) {
        ask({.token = *token});
      }
    });
  }
  return takeName();
}

std::optional<std::string> SingleInstance::release() {
  if (service_) {
    // First, so that a start that is asking meanwhile finds it free when it hears that there is no answer.
    service_->releaseName();
    service_.reset();
  }
  auto late = socket_ ? socket_->stopListening() : std::nullopt;
  socket_.reset();
  return late || !waiting_ ? late : waiting_->token;
}

// Of several at once the newest will do: its permission is the freshest.
void SingleInstance::ask(const ApplicationService::Request& request) {
  if (!std::exchange(waiting_, request)) {
    runAfterInput(*qApp, [this] { passOn(); });
  }
}

void SingleInstance::passOn() {
  // The event that has ended the loop need not be the last that it handles.
  if (asked_ && !application_->isQuitting()) {
    asked_(*std::exchange(waiting_, std::nullopt));
  }
}

bool SingleInstance::takeName() {
  const auto bus = sessionBus();
  if (!bus) {
    return true;
  }
  service_ = std::make_unique<ApplicationService>(*bus, identifier_);
  service_->setAsked([this](const ApplicationService::Request& request) { ask(request); });
  for (int i = 0; i < tries; ++i) {
    if (service_->claimName() != ApplicationService::Claim::others) {
      return true;
    }
    if (service_->activateOther(token_)) {
      return false;
    }
  }
  return true;
}

}  // namespace tarnwell::host_qt
