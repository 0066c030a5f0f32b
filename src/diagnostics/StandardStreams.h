#pragma once

namespace tarnwell::diagnostics {

/// To be called first in main() of every program. Opens the null device on a closed descriptor 0, 1 or 2, so that
/// nothing that is opened later gets a number that lines are printed on. Also lets a broken pipe and a limit of file
/// sizes show as errors of write(): neither may end the process between two steps of a write.
void prepareStandardStreams();

}  // namespace tarnwell::diagnostics
