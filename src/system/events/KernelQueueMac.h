#pragma once

#include <sys/event.h>

#include <cstdint>
#include <vector>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

// What the kernel says of descriptors, processes, files and times, it says in a queue: a descriptor that is readable
// while something is in it, and that copies of this process do not have. What fails says why in errno.

/// Closed on exec and clear of the standard streams; none when that fails.
Descriptor makeKernelQueue();

/// What a queue is asked for, as EV_SET takes it.
struct kevent kernelEvent(int number, int filter, int flags, unsigned notes = 0, std::intptr_t data = 0);

bool changeKernelQueue(const Descriptor& queue, const struct kevent& event);

/// Takes out what is in the queue, `most` events at most.
std::vector<struct kevent> takeFromKernelQueue(const Descriptor& queue, std::size_t most);

}  // namespace tarnwell::system
