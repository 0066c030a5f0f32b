#include "host/qt/controls/ControlLink.h"

#include <QtCore/QObject>

namespace tarnwell::host_qt {

ControlLink* ControlLink::of(QObject* object) noexcept { return dynamic_cast<ControlLink*>(object); }

}  // namespace tarnwell::host_qt
