#include "standin/dock/motion/Reveal.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwell::standin {
namespace {

Reveal::Time after(Reveal::Time time, Reveal::Seconds seconds) {
  return time + std::chrono::duration_cast<Reveal::Clock::duration>(seconds);
}

// Quick at the hidden end and calmer at the shown one, where it still arrives with some speed: what comes to rest too
// gently seems to be there before its time.
double eased(double position) {
  constexpr double bend = 0.6;
  return position + bend * position * (1 - position);
}

}  // namespace

Reveal::Seconds Reveal::usable(Seconds seconds) {
  constexpr double longest = 3600;
  return Seconds(seconds.count() > 0 && std::isfinite(seconds.count()) ? std::min(seconds.count(), longest) : 0.0);
}

Reveal::Reveal(Seconds delay, Seconds duration, Time now)
    : delay_(usable(delay)), duration_(usable(duration)), since_(now), deadline_(after(now, greeting)) {}

void Reveal::setPointer(PointerPlace place, Time now) {
  advance(now);
  const bool wasWanted = isWanted();
  // Who goes back from the dock to the edge has not come to the edge anew, nor has who waits there.
  if (std::exchange(place_, place) != place && (isWanted() != wasWanted || place == PointerPlace::onDock)) {
    plan(now);
  }
}

void Reveal::setHeld(bool held, Time now) {
  advance(now);
  if (std::exchange(held_, held) != held) {
    plan(now);
  }
}

double Reveal::shown(Time now) {
  advance(now);
  return eased(position(now));
}

bool Reveal::isMoving(Time now) {
  advance(now);
  return direction_ != 0;
}

void Reveal::plan(Time now) {
  deadline_.reset();
  const bool isHidden = direction_ == 0 && from_ == 0;
  if (!isWanted()) {
    deadline_ = isHidden ? std::nullopt : std::optional(after(now, patience));
  } else if (isHidden && !held_ && place_ == PointerPlace::atEdge) {
    deadline_ = after(now, delay_);
  } else {
    turn(1, now);
  }
}

// What is due starts at the time at which it was due, not at the time of the call.
void Reveal::advance(Time now) {
  if (deadline_ && now >= *deadline_) {
    const Time due = *deadline_;
    deadline_.reset();
    turn(isWanted() ? 1 : -1, due);
  }
  if (direction_ != 0) {
    const double reached = position(now);
    if (reached == (direction_ > 0 ? 1 : 0)) {
      from_ = reached;
      direction_ = 0;
    }
  }
}

void Reveal::turn(double direction, Time now) {
  from_ = position(now);
  since_ = now;
  direction_ = direction;
}

double Reveal::position(Time now) const {
  if (direction_ == 0) {
    return from_;
  }
  const double share = duration_.count() > 0 ? Seconds(now - since_) / duration_ : 1;
  return std::clamp(from_ + direction_ * share, 0.0, 1.0);
}

}  // namespace tarnwell::standin
