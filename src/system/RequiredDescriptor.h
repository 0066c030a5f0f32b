#pragma once

#include <string_view>

#include "system/Descriptor.h"

namespace tarnwell::system {

/// What the system has just answered with, moved `aboveStandardStreams`. Where it is no descriptor, with errno set, the
/// process ends with a `systemFault` that names `action`.
Descriptor requiredDescriptor(int number, std::string_view action);

}  // namespace tarnwell::system
