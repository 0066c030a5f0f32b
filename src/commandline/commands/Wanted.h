#pragma once

#include <span>
#include <string>
#include <string_view>

#include "commandline/commands/Session.h"
#include "profile/values/Profile.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {

/// The setting of that key. Failures in here are sentences.
system::Result<std::size_t> settingOf(std::string_view key);
/// The same, where this system knows it.
system::Result<std::size_t> settingOf(const Session& session, std::string_view key);

/// What KEY=VALUE words want; none of them where one is wrong.
system::Result<profile::Profile> wantedBySetting(const Session& session, std::span<const std::string> words);
/// That the settings of these keys be taken away.
system::Result<profile::Profile> wantedByTakingAway(const Session& session, std::span<const std::string> keys);
/// That all which this system knows be taken away.
profile::Profile allTakenAway(const Session& session);

/// The profile in the file `name`, which may be a pipe; "-" is standard input. Blocks until its end.
system::Result<profile::Profile> readProfileFile(const std::string& name);

/// Leaves out what this system does not know, with a word for each. `goals` are in the order of the settings.
template <class Goals>
void leaveUnknownOut(const Session& session, Goals& goals) {
  for (std::size_t setting = 0; setting < goals.size(); ++setting) {
    auto& goal = goals.at(setting);
    if (goal && !session.knows(setting)) {
      session.screen.say(noEffectText(setting) + "; left alone");
      goal.reset();
    }
  }
}
/// The profile without it.
profile::Profile withoutUnknown(const Session& session, profile::Profile wanted);

}  // namespace tarnwell::commandline
