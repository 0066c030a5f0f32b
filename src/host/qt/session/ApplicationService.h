#pragma once

#include <functional>
#include <string>

#include "host/qt/bus/BusObject.h"

namespace tarnwell::host_qt {

/// The application as launchers and further starts see it on the session bus (`org.freedesktop.Application`), under its
/// own name.
class ApplicationService final : public BusObject {
 public:
  /// `identifier` is the application's, and its name on the bus.
  ApplicationService(const QDBusConnection& bus, const std::string& identifier);

  struct Request {
    /// One of the desktop entry's; empty for the application itself.
    std::string action = {};
    /// The asker's permission to come to the front; empty for none.
    std::string token = {};
  };
  using Asked = std::function<void(const Request&)>;

  /// Hears of each request before it is answered, for which another start waits.
  void setAsked(Asked asked) { asked_ = std::move(asked); }

  enum class Claim { ours, others, unavailable };
  /// Asks the bus for the name, for two seconds at most.
  Claim claimName() const;

  /// Asks the program that has the name to come to the front; false where it will not: most likely it has gone,
  /// before or after it was asked. Waits two seconds at most for the answer of one that is busy: the bus keeps the
  /// request for it.
  bool activateOther(const std::string& token) const;

  /// Lets another program have the name; two seconds at most.
  void releaseName() const;

 private:
  QDBusMessage askBus(const QString& method, const QVariantList& arguments) const;
  /// As the bus numbers its connections; empty where there is none.
  QString ownerOfName() const;

  BusReply<> activate(const BusDictionary& platformData);
  BusReply<> open(const QStringList& uris, const BusDictionary& platformData);
  BusReply<> activateAction(const QString& action, const BusList<QDBusVariant>& parameter,
                            const BusDictionary& platformData);

  QString name_;
  Asked asked_;
};

}  // namespace tarnwell::host_qt
