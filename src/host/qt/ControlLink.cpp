#include "host/qt/ControlLink.h"

#include <QtCore/QObject>

namespace tarnwell::host::qt {

ControlLink* ControlLink::of(QObject* object) noexcept { return dynamic_cast<ControlLink*>(object); }

}  // namespace tarnwell::host::qt
