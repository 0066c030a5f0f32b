#pragma once

#include "kit/turn/Action.h"

class QObject;

namespace tarnwell::host_qt {

/// Runs `action` from the event loop, behind the keys and clicks that the display knows of now, unless `context` has
/// ended by then.
void runAfterInput(QObject& context, kit::Action action);

}  // namespace tarnwell::host_qt
