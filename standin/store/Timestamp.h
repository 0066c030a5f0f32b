#pragma once

#include <string>

namespace tarnwell::standin {

/// Now in local time, "2025-03-20 19:05:18.794".
std::string timestamp();

/// Now in local time without separators, "20250320-190518", for file names.
std::string fileStamp();

}  // namespace tarnwell::standin
