#pragma once

#include <cstdint>

#include "kit/host/Geometry.h"
#include "kit/host/KeyEvent.h"

namespace tarnwell::kit {

/// Something that happened, or that was made to look as if. The numbers are the platform's.
struct Event {
  enum class Type { leftMouseUp = 2, rightMouseUp = 4, keyDown = 10 };

  Type type = Type::keyDown;
  Point location = {};
  unsigned modifierFlags = 0;
  double timestamp = 0;  ///< Seconds.
  int windowNumber = 0;
  std::string characters = {};
  std::string charactersIgnoringModifiers = {};
  bool isARepeat = false;
  std::uint16_t keyCode = 0;

  friend bool operator==(const Event&, const Event&) = default;

  KeyEvent key() const {
    return {.charactersIgnoringModifiers = charactersIgnoringModifiers, .modifierFlags = modifierFlags};
  }
};

/// The mask bit of an event type.
inline constexpr unsigned maskOf(Event::Type type) { return 1U << static_cast<unsigned>(type); }

}  // namespace tarnwell::kit
