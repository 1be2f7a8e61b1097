#include "explorer/shrink.h"

#include <algorithm>
#include <array>
#include <functional>

#include "explorer/rest.h"

namespace explorer {
namespace {

constexpr int kMostPlays = 3000;

class Shrinker {
 public:
  Shrinker(Story story, Judge judge) : judge_(std::move(judge)), best_(std::move(story)), what_(judge_(best_)) {}

  Story Run(const Note& note) {
    if (what_.empty()) return best_;
    NameSpoiltCalls(note);
    for (bool smaller = true; smaller && plays_ < kMostPlays;) {
      smaller = LeaveOutSteps();
      if (best_.spoilt) smaller = LeaveOutSpoilt() || smaller;
      smaller |= MakePlain();
    }
    return best_;
  }

 private:
  bool Try(Story story) {
    if (plays_ >= kMostPlays) return false;
    ++plays_;
    if (judge_(story) != what_) return false;
    best_ = std::move(story);
    return true;
  }

  template <class Change>
  bool TryWith(Change change) {
    auto story = best_;
    change(story);
    return Try(std::move(story));
  }

  /// A list of calls in place of what draws them. Of a process that died none is known.
  void NameSpoiltCalls(const Note& note) {
    if (best_.spoiling == 0 || TryWith([](Story& story) { story.spoiling = 0; })) return;
    if (what_.starts_with("died")) return;
    TryWith([calls = note(best_)](Story& story) { story.spoilt = calls; });
  }

  /// Halves, quarters, … single ones.
  template <class List>
  bool LeaveOutOf(const std::function<List&(Story&)>& list) {
    bool smaller = false;
    for (auto size = list(best_).size(); size > 0; size /= 2) {
      for (std::size_t from = 0; from < list(best_).size();) {
        const bool left = TryWith([&](Story& story) {
          auto& all = list(story);
          const auto begin = all.begin() + static_cast<std::ptrdiff_t>(from);
          all.erase(begin, begin + static_cast<std::ptrdiff_t>(std::min(size, all.size() - from)));
        });
        smaller |= left;
        if (!left) from += size;
      }
    }
    return smaller;
  }
  bool LeaveOutSteps() {
    return LeaveOutOf<std::vector<Step>>([](Story & story) -> auto& { return story.steps; });
  }
  bool LeaveOutSpoilt() {
    return LeaveOutOf<SpoiltCalls>([](Story & story) -> auto& { return *story.spoilt; });
  }

  bool MakePlain() {
    bool smaller = false;
    const auto plain = [&](bool isPlain, auto change) {
      if (!isPlain) smaller |= TryWith(change);
    };
    auto& now = best_.beginning;
    plain(!now.laptop.interleaving, [](Story& story) { story.beginning.laptop.interleaving = false; });
    plain(!now.laptop.turnsUndocumented, [](Story& story) { story.beginning.laptop.turnsUndocumented = false; });
    plain(now.laptop.setupComplete, [](Story& story) { story.beginning.laptop.setupComplete = true; });
    plain(!now.uiAsksBack, [](Story& story) { story.beginning.uiAsksBack = false; });
    plain(now.uiHandlesForMs == 0, [](Story& story) { story.beginning.uiHandlesForMs = 0; });
    plain(!now.hooksForgiveNothing, [](Story& story) { story.beginning.hooksForgiveNothing = false; });
    plain(!now.hooksDieAtWaking, [](Story& story) { story.beginning.hooksDieAtWaking = false; });
    plain(!now.primaryElsewhere, [](Story& story) { story.beginning.primaryElsewhere = false; });
    plain(!best_.startsAgain, [](Story& story) { story.startsAgain = false; });
    plain(best_.last == kLastDeeds - 1, [](Story& story) { story.last = kLastDeeds - 1; });
    for (std::size_t i = 0; i < best_.steps.size(); ++i) {
      const auto& step = best_.steps[i];
      plain(step.pauseMs == kUntilQuiet, [i](Story& story) { story.steps[i].pauseMs = kUntilQuiet; });
      for (const int round : {0, 10, 100, 1000}) {
        plain(step.pauseMs <= round, [=](Story& story) { story.steps[i].pauseMs = round; });
      }
      for (std::size_t n = 0; n < step.numbers.size(); ++n) {
        plain(step.numbers[n] == 0, [=](Story& story) { story.steps[i].numbers[n] = 0; });
      }
    }
    return smaller;
  }

  const Judge judge_;
  Story best_;
  const std::string what_;
  int plays_ = 0;
};

}  // namespace

Story Shrink(Story story, Judge judge, const Note& note) {
  return Shrinker(std::move(story), std::move(judge)).Run(note);
}

}  // namespace explorer
