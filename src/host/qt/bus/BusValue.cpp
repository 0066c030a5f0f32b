#include "host/qt/bus/BusValue.h"

#include <QtDBus/QDBusMetaType>

namespace tarnwell::host_qt {

QString busSignature(const QVariant& value) {
  return value.metaType() == QMetaType::fromType<QDBusArgument>() ? value.value<QDBusArgument>().currentSignature()
                                                                  : busSignature(value.metaType());
}

QString busSignature(QMetaType type) { return QString::fromLatin1(QDBusMetaType::typeToSignature(type)); }

}  // namespace tarnwell::host_qt
