#pragma once

#include <functional>

#include "explorer/story.h"

namespace explorer {

/// Who looks at a life: after each thing that happened, where false ends it, and once all has come to rest.
struct Onlooker {
  std::function<bool(const Life& laptop)> afterStep;
  std::function<void(Life& laptop)> atRest;
};

/// Plays a story from beginning to end, and returns which calls were spoilt.
SpoiltCalls Play(const Story& story, const Onlooker& onlooker);

}  // namespace explorer
