#include "updater/signature/CryptoLibrary.h"

#include <sodium.h>

namespace tarnwell::updater {

bool isCryptoLibraryReady() {
  static const bool isReady = sodium_init() >= 0;
  return isReady;
}

}  // namespace tarnwell::updater
