#include "host/qt/bus/BusInterface.h"

#include <algorithm>

namespace tarnwell::host_qt {
namespace {

BusError standard(const char* name, const QString& text) {
  return {.name = QStringLiteral("org.freedesktop.DBus.Error.") + name, .text = text};
}

template <class Entries>
auto* named(const Entries& entries, const QString& name) {
  const auto found = std::ranges::find(entries, name, &Entries::value_type::name);
  return found != entries.end() ? &*found : nullptr;
}

QString signatureOf(const QVariantList& values) {
  QString signature;
  for (const QVariant& value : values) {
    signature += busSignature(value);
  }
  return signature;
}

QString argumentLines(const QStringList& types, const QStringList& names, qsizetype firstName, const QString& rest) {
  QString lines;
  for (qsizetype i = 0; i < types.size(); ++i) {
    lines += QStringLiteral("    <arg type=\"%1\" name=\"%2\"%3/>\n").arg(types.at(i), names.at(firstName + i), rest);
  }
  return lines;
}

}  // namespace

BusError BusError::invalidArguments(const QString& text) { return standard("InvalidArgs", text); }

BusError BusError::limitsExceeded(const QString& text) { return standard("LimitsExceeded", text); }

BusError BusError::propertyReadOnly(const QString& property) {
  return standard("PropertyReadOnly", property + " can only be read");
}

BusError BusError::unknownInterface(const QString& interface) {
  return standard("UnknownInterface", "no interface " + interface);
}

BusError BusError::unknownMethod(const QString& method) { return standard("UnknownMethod", "no method " + method); }

BusError BusError::unknownProperty(const QString& property) {
  return standard("UnknownProperty", "no property " + property);
}

BusInterface::Answer BusInterface::call(const QString& method, const QVariantList& arguments) const {
  const Method* called = methodNamed(method);
  if (called == nullptr) {
    return BusError::unknownMethod(method);
  }
  const QString signature = signatureOf(arguments);
  if (signature != called->taken.join(QString())) {
    return BusError::invalidArguments(
        QStringLiteral("%1 takes (%2), not (%3)").arg(method, called->taken.join(QString()), signature));
  }
  return called->call(arguments);
}

std::optional<QVariant> BusInterface::property(const QString& name) const {
  const Property* found = named(properties_, name);
  return found != nullptr ? std::optional(found->read()) : std::nullopt;
}

QVariantMap BusInterface::properties() const {
  QVariantMap all;
  for (const Property& property : properties_) {
    all.insert(property.name, property.read());
  }
  return all;
}

QString BusInterface::description() const {
  QString text = QStringLiteral("<interface name=\"%1\">\n").arg(name_);
  for (const Property& property : properties_) {
    text += QStringLiteral("  <property name=\"%1\" type=\"%2\" access=\"read\"/>\n").arg(property.name, property.type);
  }
  for (const Method& method : methods_) {
    text += QStringLiteral("  <method name=\"%1\">\n").arg(method.name) +
            argumentLines(method.taken, method.argumentNames, 0, QStringLiteral(" direction=\"in\"")) +
            argumentLines(method.given, method.argumentNames, method.taken.size(), " direction=\"out\"") +
            "  </method>\n";
  }
  for (const Signal& signal : signals_) {
    text += QStringLiteral("  <signal name=\"%1\">\n").arg(signal.name) +
            argumentLines(signal.types, signal.argumentNames, 0, QString()) + "  </signal>\n";
  }
  return text + "</interface>\n";
}

const BusInterface::Method* BusInterface::methodNamed(const QString& name) const { return named(methods_, name); }

}  // namespace tarnwell::host_qt
