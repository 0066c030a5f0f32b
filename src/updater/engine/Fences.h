#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tarnwell::updater {

// Each gives up what its kind of work does not need, before the first byte of a stranger is read, and returns what this
// system does not offer for that, as sentences for the log. Work that takes longer than `limit` on the clock is ended.

/// To fetch: the network and what finding and trusting a server takes. Starts nothing, and reads no file of the user's.
std::vector<std::string> fenceFetching(std::chrono::seconds limit);
/// To look at what was fetched: the tools that read Debian packages. No network, and nothing is written.
std::vector<std::string> fenceLooking(std::chrono::seconds limit);
/// To read release notes: nothing but memory and time, which are short.
std::vector<std::string> fenceReading(std::chrono::seconds limit);
/// To put a file in its place: the folder that the engine was given. No network, nothing started.
std::vector<std::string> fencePlacing(std::chrono::seconds limit);

}  // namespace tarnwell::updater
