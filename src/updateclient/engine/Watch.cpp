#include "updateclient/engine/Watch.h"

#include <utility>

#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::updateclient {

Watch watchOf(kit::Application& application) {
  return [&application](int descriptor, kit::Action readable) {
    return application.platform().watch(
        descriptor, [&application, readable = std::move(readable)] { application.turn().perform(readable); });
  };
}

}  // namespace tarnwell::updateclient
