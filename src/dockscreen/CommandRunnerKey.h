#pragma once

#include "core/CommandRunner.h"
#include "view/values/EnvironmentKeys.h"

namespace tarnwell::dockscreen {

/// How views run command lines; the application sets it. Null outside of one.
struct CommandRunnerKey : view::KeyOf<core::CommandRunner*> {};

}  // namespace tarnwell::dockscreen
