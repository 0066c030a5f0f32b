#pragma once

#include "kit/turn/Action.h"

class QObject;

namespace tarnwell::host_qt {

/// Runs `action` from the event loop, the innermost one too, unless `context` has ended by then.
void runLater(QObject& context, kit::Action action);

}  // namespace tarnwell::host_qt
