#pragma once

#include <string_view>

namespace tarnwell::standin {

/// To be called first in main(). Fills a closed descriptor 0, 1 or 2, so that no file of ours is opened in its place
/// and written over by a message. Also lets a broken pipe and a file size limit show as errors of write(): neither may
/// end the process between two steps of a write.
void prepareStandardStreams();

/// Writes to standard output. False when not every byte was taken.
bool printOut(std::string_view text);

/// Writes to standard error; nothing can be said about a failure there.
void printError(std::string_view text);

}  // namespace tarnwell::standin
