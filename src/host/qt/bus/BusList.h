#pragma once

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>

namespace tarnwell::host_qt {

/// A length that no honest peer comes near; a message may hold millions of elements.
inline constexpr qsizetype mostBusItems = 1000;

/// An array or a dictionary of a message, read up to that length.
template <class Items>
struct Limited {
  Items items = {};
  /// Nothing was left out.
  bool isWhole = true;
};

template <class T>
using BusList = Limited<QList<T>>;
using BusDictionary = Limited<QMap<QString, QDBusVariant>>;

template <class Items>
QDBusArgument& operator<<(QDBusArgument& argument, const Limited<Items>& limited) {
  return argument << limited.items;
}

template <class T>
const QDBusArgument& operator>>(const QDBusArgument& argument, BusList<T>& list) {
  list = {};
  argument.beginArray();
  while (!argument.atEnd() && list.items.size() < mostBusItems) {
    T item;
    argument >> item;
    list.items += item;
  }
  list.isWhole = argument.atEnd();
  argument.endArray();
  return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, BusDictionary& dictionary) {
  dictionary = {};
  argument.beginMap();
  // Not the size of what was read: a key may come again and again.
  for (qsizetype count = 0; !argument.atEnd() && count < mostBusItems; ++count) {
    QString key;
    QDBusVariant value;
    argument.beginMapEntry();
    argument >> key >> value;
    argument.endMapEntry();
    dictionary.items.insert(key, value);
  }
  dictionary.isWhole = argument.atEnd();
  argument.endMap();
  return argument;
}

}  // namespace tarnwell::host_qt
