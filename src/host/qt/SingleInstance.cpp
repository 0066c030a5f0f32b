#include "host/qt/SingleInstance.h"

#include <utility>
#include <variant>

#include "diagnostics/Console.h"
#include "host/qt/QtApplication.h"
#include "host/qt/SessionBus.h"

namespace tarnwell::host_qt {
namespace {

// The other one may end between being found and being asked.
constexpr int tries = 3;

}  // namespace

using Claimed = host_linux::Result<std::unique_ptr<SingleInstance>>;

Claimed SingleInstance::claim(QtApplication& application, const std::string& token) {
  const auto bus = sessionBus();
  if (!bus) {
    return claimOnSocket(application, token);
  }
  auto service = std::make_unique<ApplicationService>(*bus);
  for (int i = 0; i < tries; ++i) {
    switch (service->claimName()) {
      case ApplicationService::Claim::ours:
        return std::unique_ptr<SingleInstance>(new SingleInstance(std::move(service), nullptr));
      case ApplicationService::Claim::unavailable:
        return claimOnSocket(application, token);
      case ApplicationService::Claim::others:
        break;
    }
    const auto answer = service->activateOther(token);
    if (answer == ApplicationService::Answer::given) {
      return nullptr;
    }
    if (answer == ApplicationService::Answer::none) {
      break;
    }
  }
  return host_linux::Failure{"another Tarnwell is running, but it does not answer"};
}

void SingleInstance::setAsked(ApplicationService::Asked asked) {
  if (service_) {
    service_->setAsked(std::move(asked));
  } else {
    asked_ = std::move(asked);
  }
}

Claimed SingleInstance::claimOnSocket(QtApplication& application, const std::string& token) {
  const auto folder = host_linux::InstanceSocket::folder();
  const auto* failed = std::get_if<host_linux::Failure>(&folder);
  auto claimed = failed != nullptr ? host_linux::Result<std::unique_ptr<host_linux::InstanceSocket>>(*failed)
                                   : host_linux::InstanceSocket::claim(std::get<std::filesystem::path>(folder), token);
  if (failed = std::get_if<host_linux::Failure>(&claimed); failed != nullptr) {
    diagnostics::printErrorLine("tarnwell: cannot tell whether another Tarnwell is running: " + failed->message);
    return std::unique_ptr<SingleInstance>(new SingleInstance(nullptr, nullptr));
  }
  auto socket = std::get<std::unique_ptr<host_linux::InstanceSocket>>(std::move(claimed));
  if (!socket) {
    return nullptr;
  }
  const int descriptor = socket->descriptor();
  std::unique_ptr<SingleInstance> instance(new SingleInstance(nullptr, std::move(socket)));
  application.watch(descriptor, [own = instance.get()] {
    const ApplicationService::Request request = {.token = own->socket_->receive()};
    if (own->asked_) {
      own->asked_(request);
    }
  });
  return instance;
}

}  // namespace tarnwell::host_qt
