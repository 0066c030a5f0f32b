#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVirtualObject>

#include "host/qt/bus/BusInterface.h"

namespace tarnwell::host_qt {

/// An object on the session bus with one interface, from its making to its end. Calls arrive on the main thread.
class BusObject : public QDBusVirtualObject {
 public:
  ~BusObject() override;

  QString path() const { return path_; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) noexcept override;
  QString introspect(const QString& path) const override;

 protected:
  /// The derived class adds to the interface before the event loop runs again.
  BusObject(QDBusConnection bus, QString path, const QString& interface);

  BusInterface& interface() { return interface_; }

  /// A method of the interface is one of the derived class.
  template <class Object, class... Given, class... Taken>
  void addMethod(const QString& name, const QStringList& names, BusReply<Given...> (Object::*method)(Taken...)) {
    interface_.addMethod(name, names, bound(method));
  }

  void emitSignal(const QString& name, const QVariantList& arguments = {}) const;
  QDBusConnection bus() const { return bus_; }

 private:
  template <class Object, class... Given, class... Taken>
  auto bound(BusReply<Given...> (Object::*method)(Taken...)) {
    return std::function<BusReply<Given...>(Taken...)>([this, method](const std::decay_t<Taken>&... taken) {
      return (static_cast<Object*>(this)->*method)(taken...);
    });
  }

  BusReply<QDBusVariant> property(const QString& interface, const QString& name);
  BusReply<QVariantMap> allProperties(const QString& interface);
  BusReply<> setProperty(const QString& interface, const QString& name, const QDBusVariant& value);

  const BusInterface* interfaceFor(const QDBusMessage& message) const;
  bool isOurs(const QString& interface) const;

  QDBusConnection bus_;
  QString path_;
  BusInterface interface_;
  BusInterface properties_;
};

}  // namespace tarnwell::host_qt
