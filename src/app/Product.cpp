#include "app/Product.h"

namespace tarnwell::app {

kit::Product product() {
  return {.name = TARNWELL_NAME,
          .program = "tarnwell",
          .identifier = TARNWELL_IDENTIFIER,
          .version = TARNWELL_VERSION,
          .copyright = TARNWELL_COPYRIGHT,
          .summary = TARNWELL_SUMMARY,
          .webHost = TARNWELL_WEB_HOST};
}

}  // namespace tarnwell::app
