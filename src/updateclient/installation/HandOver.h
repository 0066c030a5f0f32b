#pragma once

namespace tarnwell::updateclient {

/// What became of a package that was handed over: it stands open in the system's installer, or has taken the place of
/// the program that runs.
enum class HandOver { opened, replaced };

}  // namespace tarnwell::updateclient
