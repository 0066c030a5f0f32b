#include "host/qt/bus/BusTypes.h"

#include <QtDBus/QDBusMetaType>

#include "host/qt/bus/BusList.h"

namespace tarnwell::host_qt {

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

}  // namespace tarnwell::host_qt
