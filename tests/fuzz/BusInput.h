#pragma once

#include <systemd/sd-bus.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwell::fuzz {

/// What an argument is made of.
class Input {
 public:
  explicit Input(std::string_view text) : text_(text) {}

  std::uint8_t byte() {
    const std::uint8_t byte = text_.empty() ? 0 : static_cast<std::uint8_t>(text_.front());
    text_.remove_prefix(text_.empty() ? 0 : 1);
    return byte;
  }

  template <class Choices>
  auto oneOf(const Choices& choices) {
    return choices.at(byte() % choices.size());
  }

 private:
  std::string_view text_;
};

inline constexpr std::array<const char*, 10> argumentTypes = {"s",     "u",  "i",     "b",  "v",
                                                              "(ddd)", "as", "a{sv}", "av", "a(isvu)"};

/// Appends arguments of these types. False where the types cannot be those of a message.
bool append(sd_bus_message& message, const std::string& signature, Input& input);

/// The types, or more or others than these, as the input says.
std::string typesLike(const std::string& signature, Input& input);

}  // namespace tarnwell::fuzz
