#include "fuzz/QtBusLink.h"

#include <QtWidgets/QApplication>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include "fuzz/Require.h"

namespace tarnwell::fuzz {

QtBusLink::QtBusLink(Answer answer) : answer_(std::move(answer)) {
  QObject::connect(&server_, &QDBusServer::newConnection, &server_,
                   [this](const QDBusConnection& connection) { ownEnd_ = connection; });
  require(::sd_bus_new(&stranger_) >= 0);
  ::sd_bus_set_address(stranger_, server_.address().toStdString().c_str());
  require(::sd_bus_start(stranger_) >= 0);
  ::sd_bus_add_filter(stranger_, nullptr, &QtBusLink::asked, this);
  require(pumpUntil([this] { return ownEnd_ && ::sd_bus_is_ready(stranger_) > 0; }));
}

bool QtBusLink::call(sd_bus_message* message) {
  std::optional<bool> isDone;
  sd_bus_slot* call = nullptr;
  ::sd_bus_call_async(stranger_, &call, message, &QtBusLink::answered, &isDone, 0);
  require(pumpUntil([&] { return isDone || !isConnected(); }));
  ::sd_bus_slot_unref(call);
  ::sd_bus_message_unref(message);
  return isDone.value_or(false);
}

int QtBusLink::asked(sd_bus_message* call, void* link, sd_bus_error* /*error*/) {
  if (::sd_bus_message_is_method_call(call, nullptr, nullptr) <= 0) {
    return 0;
  }
  static_cast<QtBusLink*>(link)->answer_(*call);
  return 1;
}

int QtBusLink::answered(sd_bus_message* answer, void* isDone, sd_bus_error* /*error*/) {
  static_cast<std::optional<bool>*>(isDone)->emplace(::sd_bus_message_is_method_error(answer, nullptr) == 0);
  return 1;
}

void startToolkit() {
  static int count = 1;
  static std::string name = "fuzz";
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  static const QApplication toolkit(count, arguments.data());
}

}  // namespace tarnwell::fuzz
