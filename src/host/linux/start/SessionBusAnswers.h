#pragma once

namespace tarnwell::host_linux {

/// Whether the user's session bus is there and takes in a new program. Waits two seconds at most, which a bus that is
/// stuck uses up.
bool sessionBusAnswers();

}  // namespace tarnwell::host_linux
