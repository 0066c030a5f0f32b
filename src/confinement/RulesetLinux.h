#pragma once

#include <cstddef>
#include <cstdint>

namespace tarnwell::confinement {

/// What a kernel is asked to close, in the order and the bits that it takes.
struct Ruleset {
  std::uint64_t files;
  std::uint64_t network;
  std::uint64_t scopes;
};

/// What newer kernels fence than the headers here know of: the number is the kernel's own
/// (Documentation/userspace-api/landlock.rst).
constexpr std::uint64_t truncateAccess = 1ULL << 14U;

/// Everything that a kernel with this version of the fence can close. Network and scopes are closed where they are not
/// needed: nothing opens them.
Ruleset everything(long version, bool usesNetwork);

/// Bytes of it that such a kernel takes: one that knows less takes less.
std::size_t sizeFor(long version);

}  // namespace tarnwell::confinement
