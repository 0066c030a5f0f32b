#pragma once

namespace tarnwell::updater {

/// Starts the library that signs and verifies, the first time. Where this is false, nothing that it says counts.
bool isCryptoLibraryReady();

}  // namespace tarnwell::updater
