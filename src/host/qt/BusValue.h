#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtDBus/QDBusArgument>
#include <optional>

namespace tarnwell::host_qt {

/// How the bus writes the type of a value, one that came from there or one of a type that is known to the toolkit.
QString busSignature(const QVariant& value);
QString busSignature(QMetaType type);

/// A value from the bus, if it is of exactly this type. Whatever comes in is read in this way alone: the bus library
/// ends the process when it reads one type as another.
template <class T>
std::optional<T> busValue(const QVariant& value) {
  return busSignature(value) == busSignature(QMetaType::fromType<T>()) ? std::optional(qdbus_cast<T>(value))
                                                                       : std::nullopt;
}

}  // namespace tarnwell::host_qt
