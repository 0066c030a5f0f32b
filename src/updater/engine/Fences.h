#pragma once

#include <string>
#include <vector>

namespace tarnwell::updater {

// Each gives up what its kind of work does not need, before the first byte of a stranger is read, and returns what this
// system does not offer for that, as sentences for the log.

/// To fetch: the network and what finding and trusting a server takes. Starts nothing, and reads no file of the user's.
std::vector<std::string> fenceFetching();
/// To look at what was fetched: the tool that reads Debian packages, with the folder of TMPDIR to work in. No network.
std::vector<std::string> fenceLooking();
/// To read release notes: nothing but memory and time, which are short.
std::vector<std::string> fenceReading();
/// To put a file in its place: the folder that the engine was given. No network, nothing started.
std::vector<std::string> fencePlacing();

}  // namespace tarnwell::updater
