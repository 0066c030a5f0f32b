#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::host_linux {

/// The text of a desktop entry, in which keys of the group "Desktop Entry" can be changed while every other line stays
/// as its author wrote it. Values are as written, with their escapes.
class DesktopEntry {
 public:
  explicit DesktopEntry(std::string_view text);

  /// The last one counts where a key is there twice.
  std::optional<std::string> value(std::string_view key) const;
  /// "true", as older files write it too; nothing for any other value and for none.
  bool isTrue(std::string_view key) const;
  bool isFalse(std::string_view key) const;

  void set(const std::string& key, const std::string& value);
  void erase(std::string_view key);

  std::string text() const;

 private:
  bool isHeader(std::size_t line) const;
  std::vector<std::size_t> linesOf(std::string_view key) const;

  std::vector<std::string> lines_;
};

/// The value of an "Exec" key that starts the first of `arguments` with the others, quoted and escaped so that they
/// arrive as they are. Nothing where the first holds "=": the format cannot say that.
std::optional<std::string> execValue(const std::vector<std::string>& arguments);

/// The program that such a value starts, by its path or its bare name. Empty where there is none.
std::string programOf(std::string_view execValue);

/// The text that the value of another key stands for.
std::string unescaped(std::string_view value);

}  // namespace tarnwell::host_linux
