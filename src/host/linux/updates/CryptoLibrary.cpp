#include "host/linux/updates/CryptoLibrary.h"

#include <sodium.h>

namespace tarnwell::host_linux::updates {

bool isCryptoLibraryReady() {
  static const bool isReady = sodium_init() >= 0;
  return isReady;
}

}  // namespace tarnwell::host_linux::updates
