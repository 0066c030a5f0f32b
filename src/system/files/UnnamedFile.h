#pragma once

#include <sys/types.h>

#include <string>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

// Folders are open descriptors, and names are those of files in them. What fails says why in errno; a system or file
// system may know none of this, and its users have a longer way for that.

/// A new file that no name leads to, to read and write, which vanishes with its last descriptor.
Descriptor openUnnamedFile(int folder, mode_t mode);

/// Gives such a file a name that is free.
bool nameFile(int file, int folder, const std::string& name);

/// Makes each of two names lead to what the other did, in one step.
bool exchangeNames(int folder, const std::string& one, const std::string& other);

}  // namespace tarnwell::system
