#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <cstddef>
#include <optional>
#include <tuple>
#include <utility>

namespace tarnwell::host_qt {

/// How the bus writes the type of a value, one that came from there or one of a type that is known to the toolkit.
QString busSignature(const QVariant& value);
QString busSignature(QMetaType type);

/// A value from the bus, if it is of exactly this type. Whatever comes in is read in this way alone, or as the
/// arguments of a message: the bus library ends the process when it reads one type as another.
template <class T>
std::optional<T> busValue(const QVariant& value) {
  return busSignature(value) == busSignature(QMetaType::fromType<T>()) ? std::optional(qdbus_cast<T>(value))
                                                                       : std::nullopt;
}

/// What a signal or an answer that came from the bus carries, if it is of exactly these types; nothing of an error.
template <class... T>
std::optional<std::tuple<T...>> busArguments(const QDBusMessage& message) {
  if (message.type() == QDBusMessage::ErrorMessage ||
      message.signature() != (QString() + ... + busSignature(QMetaType::fromType<T>()))) {
    return std::nullopt;
  }
  const QVariantList arguments = message.arguments();
  return [&arguments]<std::size_t... Index>(std::index_sequence<Index...> /*each*/) {
    return std::optional(std::tuple<T...>(qdbus_cast<T>(arguments.at(Index))...));
  }
  (std::index_sequence_for<T...>());
}

}  // namespace tarnwell::host_qt
