#pragma once

#include <string>
#include <string_view>

namespace tarnwell::commandline {

/// What a command prints: its answer on standard output, all at once at the end, and what there is to say on standard
/// error.
class Screen {
 public:
  enum class Colors { whereShown, always, never };

  /// Where they are shown: on a terminal, unless NO_COLOR is set or TERM is "dumb".
  explicit Screen(Colors colors);

  void add(std::string_view text) { text_ += text; }
  void addLine(std::string_view line) { (text_ += line) += '\n'; }
  /// False, with a word on standard error, where not all of it was taken.
  bool show();

  /// "tarnwell: " and the message.
  void say(std::string_view message) const;

  std::string faint(std::string_view text) const { return styled("2", text); }
  std::string striking(std::string_view text) const { return styled("33", text); }
  std::string fresh(std::string_view text) const { return styled("32", text); }

 private:
  std::string styled(std::string_view code, std::string_view text) const;

  bool isColored_;
  std::string text_;
};

}  // namespace tarnwell::commandline
