#pragma once

#include <systemd/sd-bus.h>

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServer>
#include <functional>
#include <optional>

namespace tarnwell::fuzz {

/// A connection of the bus's kind, without a bus between: we are at one end and a stranger is at the other.
class QtBusLink {
 public:
  /// What the stranger is called says what it answers.
  using Answer = std::function<void(sd_bus_message& call)>;

  explicit QtBusLink(Answer answer);
  QtBusLink(const QtBusLink&) = delete;
  QtBusLink& operator=(const QtBusLink&) = delete;
  ~QtBusLink() { ::sd_bus_close_unref(stranger_); }

  const QDBusConnection& ownEnd() const { return *ownEnd_; }
  sd_bus* stranger() const { return stranger_; }

  /// The bus library itself sends strangers away whose messages are not well formed.
  bool isConnected() const { return ::sd_bus_is_open(stranger_) > 0; }

  /// Calls us and waits for an answer, which there must be. False for an error. Takes the message over.
  bool call(sd_bus_message* message);

  template <class Condition>
  bool pumpUntil(const Condition& condition) {
    for (int round = 0; round < mostRounds && !condition(); ++round) {
      QCoreApplication::processEvents();
      ::sd_bus_process(stranger_, nullptr);
      ::sd_bus_wait(stranger_, 100);
    }
    return condition();
  }

 private:
  static constexpr int mostRounds = 100'000;

  static int asked(sd_bus_message* call, void* link, sd_bus_error* error);
  static int answered(sd_bus_message* answer, void* isDone, sd_bus_error* error);

  Answer answer_;
  QDBusServer server_{"unix:tmpdir=/tmp"};
  std::optional<QDBusConnection> ownEnd_;
  sd_bus* stranger_ = nullptr;
};

/// The toolkit's application without a display, once. Before a link.
void startToolkit();

}  // namespace tarnwell::fuzz
