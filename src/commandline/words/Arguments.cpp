#include "commandline/words/Arguments.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "commandline/words/Usage.h"
#include "profile/values/Suggestion.h"

namespace tarnwell::commandline {
namespace {

using system::Failure;
using system::Result;

std::string inQuotes(std::string_view word) { return '"' + std::string(word) + '"'; }

template <class Rows, class Name>
std::vector<std::string_view> namesOf(const Rows& rows, const Name& name) {
  std::vector<std::string_view> names;
  std::ranges::transform(rows, std::back_inserter(names), name);
  return names;
}

/// Where a word is one of few, they are named where none is close.
std::string choiceSuggestion(std::string_view word, std::span<const std::string_view> allowed) {
  std::string names;
  for (const std::string_view each : allowed) {
    names.append(names.empty() ? "; it takes " : ", ").append(each);
  }
  return profile::suggestion(word, allowed, names + ".");
}

/// What other tools call something of ours.
struct OtherName {
  std::string_view word;
  std::string_view ours;
};
constexpr std::array<OtherName, 7> otherNames = {{{"unset", "reset"},
                                                  {"delete", "reset"},
                                                  {"read", "get"},
                                                  {"write", "set"},
                                                  {"import", "apply"},
                                                  {"help", "--help"},
                                                  {"version", "--version"}}};

std::string commandSuggestion(std::string_view word) {
  const auto* const other = std::ranges::find(otherNames, word, &OtherName::word);
  return other != otherNames.end() ? "; did you mean " + std::string(other->ours) + "?"
                                   : profile::suggestion(word, namesOf(commands(), &Command::word));
}

const Option* optionNamed(std::string_view name) {
  const auto* const found = std::ranges::find(options, name, &Option::longName);
  return found == options.end() ? nullptr : found;
}

const Option* optionWith(char letter) {
  const auto* const found = std::ranges::find(options, letter, &Option::letter);
  return letter == ' ' || found == options.end() ? nullptr : found;
}

class Parser {
 public:
  Parser(const std::string& program, std::span<const char* const> words) : program_(program), words_(words) {}

  Result<Arguments> parse() {
    const std::string_view word = words_.front();
    const auto all = commands();
    const auto found = std::ranges::find(all, word, &Command::word);
    if (found == all.end()) {
      return Failure{inQuotes(word) + " is not a command" + commandSuggestion(word) + "\n" + usageLine(program_)};
    }
    result_.command = &*found;
    for (; next_ < words_.size() && !failure_; ++next_) {
      take(words_[next_]);
    }
    if (!failure_ && !result_.has(OptionName::help)) {
      checkCount();
    }
    return failure_ ? Result<Arguments>(*failure_) : Result<Arguments>(std::move(result_));
  }

 private:
  void take(std::string_view word) {
    if (areOptionsOver_ || word.size() < 2 || word.front() != '-') {
      result_.operands.emplace_back(word);
    } else if (word == "--") {
      areOptionsOver_ = true;
    } else if (word.starts_with("--")) {
      takeLong(word.substr(2));
    } else {
      takeLetters(word.substr(1));
    }
  }

  void takeLong(std::string_view word) {
    const auto equals = word.find('=');
    const auto name = word.substr(0, equals);
    const Option* option = optionNamed(name);
    if (option == nullptr || !takes(*result_.command, option->name)) {
      return refuseOption("--" + std::string(name));
    }
    if (equals == std::string_view::npos) {
      return takeOption(*option);
    }
    if (!option->takesValue()) {
      return refuse("--" + std::string(name) + " takes no value.");
    }
    store(*option, std::string(word.substr(equals + 1)));
  }

  void takeLetters(std::string_view letters) {
    for (; !letters.empty(); letters.remove_prefix(1)) {
      const Option* option = optionWith(letters.front());
      if (option == nullptr || !takes(*result_.command, option->name)) {
        return refuseOption(std::string("-") + letters.front());
      }
      if (option->takesValue() && letters.size() > 1) {
        return store(*option, std::string(letters.substr(1)));
      }
      takeOption(*option);
    }
  }

  void takeOption(const Option& option) {
    if (!option.takesValue()) {
      return store(option, "");
    }
    if (++next_ >= words_.size()) {
      return refuse("--" + std::string(option.longName) + " is followed by " + std::string(placeholder(option.value)) +
                    ".");
    }
    store(option, words_[next_]);
  }

  void store(const Option& option, const std::string& value) {
    const auto allowed = choices(option.value);
    if (!allowed.empty() && std::ranges::find(allowed, value) == allowed.end()) {
      return refuse(inQuotes(value) + " is no " + std::string(placeholder(option.value)) + " of --" +
                    std::string(option.longName) + choiceSuggestion(value, allowed));
    }
    result_.options[option.name] = value;
  }

  void checkCount() {
    const Command& command = *result_.command;
    if (result_.operands.size() < command.fewest) {
      refuse("There is a word missing behind " + std::string(command.word) + ".");
    } else if (result_.operands.size() > command.most) {
      refuse(inQuotes(result_.operands.at(command.most)) + " is one word too many.");
    } else if (const auto allowed = choices(command.operand); !allowed.empty()) {
      checkChoice(allowed);
    }
  }

  void checkChoice(std::span<const std::string_view> allowed) {
    for (const std::string& operand : result_.operands) {
      if (std::ranges::find(allowed, operand) == allowed.end()) {
        refuse(inQuotes(operand) + " is not known to " + std::string(result_.command->word) +
               choiceSuggestion(operand, allowed));
      }
    }
  }

  void refuseOption(const std::string& typed) {
    std::vector<std::string> known;
    for (const Option& option : options) {
      if (takes(*result_.command, option.name)) {
        known.push_back("--" + std::string(option.longName));
      }
    }
    refuse(inQuotes(typed) + " is not an option of " + std::string(result_.command->word) +
           profile::suggestion(typed, std::vector<std::string_view>(known.begin(), known.end())));
  }

  void refuse(const std::string& reason) { failure_ = Failure{reason + "\n" + usageLine(program_, *result_.command)}; }

  const std::string& program_;
  std::span<const char* const> words_;
  std::size_t next_ = 1;
  bool areOptionsOver_ = false;
  Arguments result_;
  std::optional<Failure> failure_;
};

}  // namespace

std::optional<std::string> Arguments::value(OptionName option) const {
  const auto found = options.find(option);
  return found == options.end() ? std::nullopt : std::optional(found->second);
}

Result<Arguments> parseArguments(const std::string& program, std::span<const char* const> words) {
  return Parser(program, words).parse();
}

}  // namespace tarnwell::commandline
