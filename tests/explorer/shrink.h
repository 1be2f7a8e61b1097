#pragma once

#include <string>

#include "tests/explorer/story.h"

namespace explorer {

/// What a story breaks first, or how its process died: it is played in a process of its own, and for at most a minute.
/// Empty when all holds.
[[nodiscard]] std::string PlayApart(const Story& story);

/// The shortest story found that breaks the same: without what can be left out, with round pauses and small numbers.
[[nodiscard]] Story Shrink(Story story);

}  // namespace explorer
