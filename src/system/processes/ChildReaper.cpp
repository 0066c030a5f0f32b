#include "system/processes/ChildReaper.h"

#include <utility>

namespace tarnwell::system {

void ChildReaper::watch(Process child, Ended ended) {
  tell(unwatchedEnds());
  Descriptor ending = child.endDescriptor();
  Child taken = {.ending = std::move(ending), .process = std::move(child), .ended = std::move(ended)};
  if (!tryWatch(taken)) {
    unwatched_.push_back(std::move(taken));
  }
}

void ChildReaper::reap() {
  Ends ends = unwatchedEnds();
  // The bound keeps a burst of endings from holding up the host's loop.
  constexpr std::size_t most = 16;
  for (const int number : ending_.readable(most)) {
    const auto found = watched_.find(number);
    ends.emplace_back(std::move(found->second.ended), found->second.process.wait());
    ending_.remove(number);
    watched_.erase(found);
  }
  tell(ends);
}

bool ChildReaper::tryWatch(Child& child) {
  const int number = child.ending.number();
  return child.ending && ending_.add(number) && watched_.emplace(number, std::move(child)).second;
}

ChildReaper::Ends ChildReaper::unwatchedEnds() {
  Ends ends;
  std::erase_if(unwatched_, [&](Child& child) {
    const auto end = child.process.end();
    if (end) {
      ends.emplace_back(std::move(child.ended), *end);
    }
    return end.has_value();
  });
  return ends;
}

void ChildReaper::tell(const Ends& ends) {
  for (const auto& [ended, end] : ends) {
    if (ended) {
      ended(end);
    }
  }
}

}  // namespace tarnwell::system
