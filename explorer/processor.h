#pragma once

namespace explorer {

/// Keeps the calling thread, and those it starts, on one of the processors that this process may use, by any number.
/// The threads of a laptop take turns, and hand them on twice as fast there.
void StayOnProcessor(unsigned number);

}  // namespace explorer
