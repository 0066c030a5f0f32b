#pragma once

#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVirtualObject>
#include <map>
#include <optional>
#include <string>

namespace tarnwell::host_qt {

/// The desktop's settings portal, with the appearance settings that a test gives it.
class FakePortal final : public QDBusVirtualObject {
 public:
  explicit FakePortal(const std::string& busAddress);
  FakePortal(const FakePortal&) = delete;
  FakePortal& operator=(const FakePortal&) = delete;
  /// The portal leaves the bus.
  ~FakePortal() override;

  static QVariant color(double red, double green, double blue);

  void set(const std::string& key, const QVariant& value) { settings_[key] = value; }
  /// Sets, and sends the signal.
  void change(const std::string& key, const QVariant& value);
  /// A signal of any content.
  void tell(const QVariantList& arguments) const;
  /// From now on each question is answered with that.
  void answerWith(const QVariantList& answer) { answer_ = answer; }
  /// From now on it hears questions and answers none.
  void setSilent() { silent_ = true; }

  int questions() const { return questions_; }

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  QDBusConnection connection_;
  std::map<std::string, QVariant> settings_;
  int questions_ = 0;
  std::optional<QVariantList> answer_;
  bool silent_ = false;
};

}  // namespace tarnwell::host_qt
