#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>
#include <tuple>

namespace tarnwell::host_qt {

// The structures of what is said on the bus. `members` names those of each in the order of the bus.

/// One size of a picture: rows of 32-bit pixels, alpha first, the most significant byte first.
struct BusImage {
  int width = 0;
  int height = 0;
  QByteArray pixels = {};

  auto members() { return std::tie(width, height, pixels); }
};

struct BusToolTip {
  QString iconName = {};
  QList<BusImage> icon = {};
  QString title = {};
  QString text = {};

  auto members() { return std::tie(iconName, icon, title, text); }
};

struct BusMenuItem {
  int id = 0;
  QVariantMap properties = {};

  auto members() { return std::tie(id, properties); }
};

/// An entry and those below it, each one a BusMenuLayout.
struct BusMenuLayout {
  int id = 0;
  QVariantMap properties = {};
  QVariantList children = {};

  auto members() { return std::tie(id, properties, children); }
};

struct BusMenuEvent {
  int id = 0;
  QString kind = {};
  QDBusVariant data = {};
  uint timestamp = 0;

  auto members() { return std::tie(id, kind, data, timestamp); }
};

/// A colour of the portal's; each channel is between 0 and 1, or there is none.
struct BusColor {
  double red = 0;
  double green = 0;
  double blue = 0;

  auto members() { return std::tie(red, green, blue); }
};

/// Makes them known to the toolkit; before the first of them is sent or received.
void registerBusTypes();

template <class T>
concept BusStructure = requires(T& structure) {
  structure.members();
};

template <BusStructure T>
QDBusArgument& operator<<(QDBusArgument& argument, T structure) {
  argument.beginStructure();
  std::apply([&](const auto&... members) { (argument << ... << members); }, structure.members());
  argument.endStructure();
  return argument;
}

template <BusStructure T>
const QDBusArgument& operator>>(const QDBusArgument& argument, T& structure) {
  argument.beginStructure();
  std::apply([&](auto&... members) { (argument >> ... >> members); }, structure.members());
  argument.endStructure();
  return argument;
}

}  // namespace tarnwell::host_qt
