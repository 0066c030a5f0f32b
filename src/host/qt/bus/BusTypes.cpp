#include "host/qt/bus/BusTypes.h"

#include <QtDBus/QDBusMetaType>
#include <initializer_list>

#include "host/qt/bus/BusList.h"

namespace tarnwell::host_qt {
namespace {

template <class... Member>
QDBusArgument& write(QDBusArgument& argument, const Member&... members) {
  argument.beginStructure();
  (argument << ... << members);
  argument.endStructure();
  return argument;
}

template <class... Member>
const QDBusArgument& read(const QDBusArgument& argument, Member&... members) {
  argument.beginStructure();
  (argument >> ... >> members);
  argument.endStructure();
  return argument;
}

}  // namespace

void registerBusTypes() {
  qDBusRegisterMetaType<BusImage>();
  qDBusRegisterMetaType<QList<BusImage>>();
  qDBusRegisterMetaType<BusToolTip>();
  qDBusRegisterMetaType<BusMenuItem>();
  qDBusRegisterMetaType<QList<BusMenuItem>>();
  qDBusRegisterMetaType<BusMenuLayout>();
  qDBusRegisterMetaType<BusMenuEvent>();
  qDBusRegisterMetaType<BusColor>();
  qDBusRegisterMetaType<QList<QStringList>>();
  qDBusRegisterMetaType<BusList<int>>();
  qDBusRegisterMetaType<BusList<BusMenuEvent>>();
  qDBusRegisterMetaType<BusList<QDBusVariant>>();
  qDBusRegisterMetaType<BusDictionary>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusImage& image) {
  return write(argument, image.width, image.height, image.pixels);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusImage& image) {
  return read(argument, image.width, image.height, image.pixels);
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusToolTip& toolTip) {
  return write(argument, toolTip.iconName, toolTip.icon, toolTip.title, toolTip.text);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusToolTip& toolTip) {
  return read(argument, toolTip.iconName, toolTip.icon, toolTip.title, toolTip.text);
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuItem& item) {
  return write(argument, item.id, item.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuItem& item) {
  return read(argument, item.id, item.properties);
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuLayout& layout) {
  return write(argument, layout.id, layout.properties, layout.children);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuLayout& layout) {
  return read(argument, layout.id, layout.properties, layout.children);
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event) {
  return write(argument, event.id, event.kind, event.data, event.timestamp);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event) {
  return read(argument, event.id, event.kind, event.data, event.timestamp);
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusColor& color) {
  return write(argument, color.red, color.green, color.blue);
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusColor& color) {
  return read(argument, color.red, color.green, color.blue);
}

}  // namespace tarnwell::host_qt
