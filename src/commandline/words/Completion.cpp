#include "commandline/words/Completion.h"

#include "core/MinEffect.h"
#include "profile/values/Setting.h"

namespace tarnwell::commandline {
namespace {

std::vector<std::string_view> valuesOf(profile::Type type) {
  switch (type) {
    case profile::Type::seconds:
      return {""};
    case profile::Type::boolean:
      return {"true", "false"};
    case profile::Type::effect:
      return {core::text(core::MinEffect::genie), core::text(core::MinEffect::scale),
              core::text(core::MinEffect::suck)};
  }
  return {};
}

std::string longForm(const Option& option) { return "--" + std::string(option.longName); }

std::string letterForm(const Option& option) { return std::string("-") + option.letter; }

}  // namespace

std::vector<std::string> candidates(Word word) {
  std::vector<std::string> words;
  for (const auto& setting : profile::settings) {
    const std::string key(setting.key);
    if (word == Word::key) {
      words.push_back(key);
    } else if (word == Word::setting) {
      for (const auto value : valuesOf(setting.type)) {
        words.push_back((key + "=").append(value));
      }
    }
  }
  for (const auto choice : choices(word)) {
    words.emplace_back(choice);
  }
  return words;
}

std::string completion(const std::string& program, std::string_view shell) {
  return shell == "bash" ? bashCompletion(program) : shell == "zsh" ? zshCompletion(program) : fishCompletion(program);
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

std::vector<std::string> optionWords(const Command& command) {
  std::vector<std::string> words;
  for (const Option& option : options) {
    if (!takes(command, option.name)) {
      continue;
    }
    const auto values = choices(option.value);
    for (const auto value : values) {
      words.push_back((longForm(option) + "=").append(value));
    }
    if (values.empty()) {
      words.push_back(longForm(option));
    }
    if (option.letter != ' ') {
      words.push_back(letterForm(option));
    }
  }
  return words;
}

std::string optionPattern(Word value) {
  std::string pattern;
  for (const Option& option : options) {
    if (option.value == value) {
      pattern +=
          (pattern.empty() ? "" : " | ") + longForm(option) + (option.letter == ' ' ? "" : " | " + letterForm(option));
    }
  }
  return pattern;
}

}  // namespace tarnwell::commandline
