#pragma once

#include <cstddef>
#include <functional>

// While the main thread waits for another program, the system goes on telling it what happens. What needs no answer is
// only noted then, and dealt with from the message loop in the order in which it came: so that a lid that is opened
// while "lid closed" is being dealt with counts as opened, and so that COM may be called, which is refused while a
// message that was sent is being handled.
namespace tessaview {

/// Has the main thread call `deal` from its message loop, after what was noted before. Any thread; returns at once.
void DealLater(std::function<void()> deal);

/// The same, unless `most` calls of this `deal` wait already.
void DealLaterAtMost(std::size_t most, void (*deal)());

/// Deals with all that is noted, also what is noted meanwhile. Main thread, from the message loop.
void DealWithNoted();

}  // namespace tessaview
