#pragma once

namespace tarnwell::system {

/// This process's environment, "NAME=value" each, behind which there is a null pointer. For as long as no variable is
/// set.
char** processEnvironment();

}  // namespace tarnwell::system
