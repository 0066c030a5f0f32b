#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <string>

namespace tarnwell::host_qt {

/// Another program on the tests' bus, of which nothing is known.
class Stranger {
 public:
  Stranger();
  Stranger(const Stranger&) = delete;
  Stranger& operator=(const Stranger&) = delete;
  ~Stranger();

  /// A signal, which the bus has passed on by the time that this returns.
  void emitSignal(const QString& path, const QString& interface, const QString& name,
                  const QVariantList& arguments) const;

  /// What this process answers, which has to have an event loop that waits; an error without a name when it does not.
  QDBusMessage call(const QString& path, const QString& interface, const QString& method,
                    const QVariantList& arguments) const;

 private:
  QDBusConnection connection_;
};

}  // namespace tarnwell::host_qt
