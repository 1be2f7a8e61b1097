#include "explorer/play.h"

#include "explorer/rest.h"

namespace explorer {
namespace {

constexpr std::uint64_t kLongestPauseMs = 60'000;  // the user's desktop is waited for without a limit

Plan PlanOf(const Story& story) {
  if (story.spoilt) return ListedPlan(*story.spoilt);
  return story.spoiling == 0 ? nullptr : DrawnPlan(story.spoiling, story.startsAgain);
}

void TakePause(Life& laptop, int pauseMs) {
  if (pauseMs == kUntilQuiet) {
    laptop.Settle(kLongestPauseMs);
  } else {
    laptop.Advance(static_cast<std::uint64_t>(pauseMs));
  }
}

/// False when the onlooker has seen enough.
bool PlaySteps(Life& laptop, const std::vector<Step>& steps, const Onlooker& onlooker) {
  const auto atTheSameTime = laptop.Quietly();
  for (const auto& [what, numbers, pauseMs] : steps) {
    if (laptop.ExitCode()) laptop.Restart();
    what->happen(laptop, numbers[0], numbers[1], numbers[2]);
    TakePause(laptop, pauseMs);
    laptop.NoteLayout();
    if (!onlooker.afterStep(laptop)) return false;
  }
  return true;
}

}  // namespace

SpoiltCalls Play(const Story& story, const Onlooker& onlooker) {
  SpoiltCalls spoilt;
  Life laptop(story.beginning);
  if (auto plan = PlanOf(story)) laptop.faults.plan = Noted(std::move(plan), spoilt);
  laptop.Boot(kLongestStartMs);
  if (!PlaySteps(laptop, story.steps, onlooker)) return spoilt;
  ComeToRest(laptop, story.startsAgain, story.last);
  if (onlooker.afterStep(laptop)) onlooker.atRest(laptop);
  return spoilt;
}

}  // namespace explorer
