#include "commandline/commands/Wanted.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core/ValueText.h"
#include "profile/toml/ProfileReader.h"
#include "profile/values/Suggestion.h"
#include "system/base/Descriptor.h"

namespace tarnwell::commandline {
namespace {

using profile::Wish;
using system::Failure;
using system::Result;

std::string inQuotes(std::string_view word) { return '"' + std::string(word) + '"'; }

std::string lowerCased(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return result;
}

Result<Wish> asSentence(const Result<Wish>& wish) { return wish ? wish : Failure{wish.error().message + "."}; }

Result<Wish> secondsOf(const profile::Setting& setting, const std::string& text) {
  const bool isHexadecimal = text.find_first_of("xX") != std::string::npos;
  if (const auto number = core::parseNumber(text); number && !isHexadecimal) {
    return asSentence(profile::secondsWish(setting, *number, text));
  }
  return Failure{std::string(setting.key) + " is a number of seconds with a decimal point, not " + inQuotes(text) +
                 "."};
}

Result<Wish> booleanOf(const profile::Setting& setting, const std::string& text) {
  constexpr std::array<std::string_view, 8> words = {"true", "false", "yes", "no", "on", "off", "1", "0"};
  const auto* const found = std::ranges::find(words, lowerCased(text));
  if (found == words.end()) {
    return Failure{std::string(setting.key) + " is true or false, not " + inQuotes(text) + "."};
  }
  return Wish((found - words.begin()) % 2 == 0);
}

Result<Wish> wishOf(const profile::Setting& setting, const std::string& text) {
  switch (setting.type) {
    case profile::Type::seconds:
      return secondsOf(setting, text);
    case profile::Type::boolean:
      return booleanOf(setting, text);
    case profile::Type::effect:
      return asSentence(profile::effectWish(setting, text));
  }
  return Failure();
}

/// Adds a wish for the setting of a key; why it cannot be had where it is wrong.
template <class MakeWish>
std::optional<Failure> add(profile::Profile& wanted, const Session& session, std::string_view key,
                           const MakeWish& makeWish) {
  const auto setting = settingOf(session, key);
  if (!setting) {
    return setting.error();
  }
  auto& place = wanted.wishes.at(*setting);
  if (place) {
    return Failure{std::string(key) + " is named twice."};
  }
  Result<Wish> wish = makeWish(profile::settings.at(*setting));
  if (!wish) {
    return wish.error();
  }
  place = *wish;
  return std::nullopt;
}

/// How a key without a value should have been typed.
Failure withoutValue(std::span<const std::string> words, std::size_t place) {
  const std::string& word = words[place];
  const bool isFollowed = place + 1 < words.size() && words[place + 1].find('=') == std::string::npos;
  return {"Write it as " + word + "=" + (isFollowed ? words[place + 1] : "VALUE") + "."};
}

system::Descriptor openInput(const std::string& name) {
  return system::Descriptor(name == "-" ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)
                                        : ::open(name.c_str(), O_RDONLY | O_CLOEXEC));
}

}  // namespace

Result<std::size_t> settingOf(std::string_view key) {
  if (const auto setting = profile::settingNamed(key)) {
    return *setting;
  }
  std::vector<std::string_view> keys;
  std::ranges::transform(profile::settings, std::back_inserter(keys), &profile::Setting::key);
  return Failure{inQuotes(key) + " is not a setting that Tarnwell knows" + profile::suggestion(key, keys)};
}

Result<std::size_t> settingOf(const Session& session, std::string_view key) {
  const auto setting = settingOf(key);
  return !setting || session.knows(*setting) ? setting : Failure{noEffectText(*setting) + "."};
}

Result<profile::Profile> wantedBySetting(const Session& session, std::span<const std::string> words) {
  profile::Profile wanted;
  for (std::size_t place = 0; place < words.size(); ++place) {
    const std::string& word = words[place];
    const auto equals = word.find('=');
    if (equals == std::string::npos && profile::settingNamed(word)) {
      return withoutValue(words, place);
    }
    const std::string value = equals == std::string::npos ? "" : word.substr(equals + 1);
    const auto wrong = add(wanted, session, word.substr(0, equals),
                           [&](const profile::Setting& setting) { return wishOf(setting, value); });
    if (wrong) {
      return *wrong;
    }
  }
  return wanted;
}

Result<profile::Profile> wantedByTakingAway(const Session& session, std::span<const std::string> keys) {
  profile::Profile wanted;
  for (const std::string& key : keys) {
    if (const auto wrong = add(wanted, session, key, [](auto&) { return Wish(profile::Unset()); })) {
      return *wrong;
    }
  }
  return wanted;
}

profile::Profile allTakenAway(const Session& session) {
  profile::Profile wanted;
  for (std::size_t setting = 0; setting < profile::settings.size(); ++setting) {
    if (session.knows(setting)) {
      wanted.wishes.at(setting) = profile::Unset();
    }
  }
  return wanted;
}

Result<profile::Profile> readProfileFile(const std::string& name) {
  const std::string shown = name == "-" ? "standard input" : name;
  const system::Descriptor file = openInput(name);
  const auto text = file ? file.readAll(profile::largestProfile) : std::nullopt;
  return text ? profile::readProfile(*text, shown) : system::systemFailure("cannot read " + shown);
}

profile::Profile withoutUnknown(const Session& session, profile::Profile wanted) {
  leaveUnknownOut(session, wanted.wishes);
  return wanted;
}

}  // namespace tarnwell::commandline
