#pragma once

#include <functional>
#include <string>

#include "explorer/story.h"

namespace explorer {

/// What a story breaks first; empty when all holds.
using Judge = std::function<std::string(const Story&)>;
/// Which calls were spoilt in a story.
using Note = std::function<SpoiltCalls(const Story&)>;

/// The shortest story found that breaks the same: without what can be left out, with round pauses and small numbers.
[[nodiscard]] Story Shrink(Story story, Judge judge, const Note& note);

}  // namespace explorer
