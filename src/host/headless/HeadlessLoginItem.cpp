#include "host/headless/HeadlessLoginItem.h"

namespace tarnwell::host_headless {

std::optional<std::string> HeadlessLoginItem::registerItem() {
  journal_.note("login item: register");
  if (!answers_.registerFailure) {
    status_ = answers_.onceRegistered;
  }
  return answers_.registerFailure;
}

std::optional<std::string> HeadlessLoginItem::unregisterItem() {
  journal_.note("login item: unregister");
  if (!answers_.unregisterFailure) {
    status_ = Status::notRegistered;
  }
  return answers_.unregisterFailure;
}

}  // namespace tarnwell::host_headless
