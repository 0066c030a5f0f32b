#pragma once

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVirtualObject>
#include <optional>

namespace tarnwell::host_qt {

/// An object on the session bus with one interface, from its making to its end. Calls arrive on the main thread.
class BusObject : public QDBusVirtualObject {
 public:
  ~BusObject() override;

  QString path() const { return path_; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) noexcept override;
  QString introspect(const QString& path) const override;

 protected:
  /// `description` is the interface as introspection tells it.
  BusObject(QDBusConnection bus, QString path, QString interface, QString description);

  /// What a method of the interface gives back; nothing for a method that it does not have.
  virtual std::optional<QVariantList> call(const QString& method, const QVariantList& arguments) = 0;

  /// All of the interface, as they are now. They cannot be written.
  virtual QVariantMap properties() const { return {}; }

  void emitSignal(const QString& name, const QVariantList& arguments = {}) const;
  QDBusConnection bus() const { return bus_; }

 private:
  std::optional<QVariantList> answer(const QDBusMessage& message);
  std::optional<QVariantList> property(const QString& name) const;

  QDBusConnection bus_;
  QString path_;
  QString interface_;
  QString description_;
};

}  // namespace tarnwell::host_qt
