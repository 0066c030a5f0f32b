#include "host/headless/JournalPeer.h"

namespace tarnwell::host_headless {

JournalPeer::~JournalPeer() { journal_.note(name_, "removed"); }

void JournalPeer::show(kit::Aspect aspect) noexcept { journal_.note(name_, aspectName(aspect)); }

void JournalPeer::place(const kit::Rect& /*frame*/) noexcept { journal_.note(name_, "place"); }

std::string_view aspectName(kit::Aspect aspect) {
  switch (aspect) {
    case kit::Aspect::enabled:
      return "enabled";
    case kit::Aspect::value:
      return "value";
    case kit::Aspect::title:
      return "title";
    case kit::Aspect::style:
      return "style";
    case kit::Aspect::accessibleName:
      return "accessible name";
    case kit::Aspect::accessibleDescription:
      return "accessible description";
    case kit::Aspect::visible:
      return "visible";
    case kit::Aspect::level:
      return "level";
  }
  return "?";
}

}  // namespace tarnwell::host_headless
