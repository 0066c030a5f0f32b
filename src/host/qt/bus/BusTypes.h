#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>

namespace tarnwell::host_qt {

// The structures of what is said on the bus.

/// One size of a picture: rows of 32-bit pixels, alpha first, the most significant byte first.
struct BusImage {
  int width = 0;
  int height = 0;
  QByteArray pixels = {};
};

struct BusToolTip {
  QString iconName = {};
  QList<BusImage> icon = {};
  QString title = {};
  QString text = {};
};

struct BusMenuItem {
  int id = 0;
  QVariantMap properties = {};
};

/// An entry and those below it, each one a BusMenuLayout.
struct BusMenuLayout {
  int id = 0;
  QVariantMap properties = {};
  QVariantList children = {};
};

struct BusMenuEvent {
  int id = 0;
  QString kind = {};
  QDBusVariant data = {};
  uint timestamp = 0;
};

/// A colour of the portal's; each channel is between 0 and 1, or there is none.
struct BusColor {
  double red = 0;
  double green = 0;
  double blue = 0;
};

/// Makes them known to the toolkit; before the first of them is sent or received.
void registerBusTypes();

QDBusArgument& operator<<(QDBusArgument& argument, const BusImage& image);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusImage& image);
QDBusArgument& operator<<(QDBusArgument& argument, const BusToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event);
QDBusArgument& operator<<(QDBusArgument& argument, const BusColor& color);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusColor& color);

}  // namespace tarnwell::host_qt

Q_DECLARE_METATYPE(tarnwell::host_qt::BusImage)
Q_DECLARE_METATYPE(tarnwell::host_qt::BusToolTip)
Q_DECLARE_METATYPE(tarnwell::host_qt::BusMenuItem)
Q_DECLARE_METATYPE(tarnwell::host_qt::BusMenuLayout)
Q_DECLARE_METATYPE(tarnwell::host_qt::BusMenuEvent)
Q_DECLARE_METATYPE(tarnwell::host_qt::BusColor)
