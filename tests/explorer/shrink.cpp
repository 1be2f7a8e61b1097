#include "tests/explorer/shrink.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>

#include "tests/explorer/promises.h"

namespace explorer {
namespace {

constexpr unsigned kLongestSeconds = 60;
constexpr int kMostPlays = 3000;

/// Plays in a child process and hands over what it wrote.
std::string InChild(const std::function<std::string()>& work) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return "no pipe";
  const auto child = fork();
  if (child == 0) {
    alarm(kLongestSeconds);
    const auto text = work();
    _exit(write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string text;
  std::array<char, 4096> part{};
  for (ssize_t got = 0; (got = read(ends[0], part.data(), part.size())) > 0;)
    text.append(part.data(), static_cast<std::size_t>(got));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? "died of signal " + std::to_string(WTERMSIG(status)) : text;
}

class Shrinker {
 public:
  explicit Shrinker(Story story) : best_(std::move(story)), what_(PlayApart(best_)) {}

  Story Run() {
    if (what_.empty()) return best_;
    NameSpoiltCalls();
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
    if (PlayApart(story) != what_) return false;
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
  void NameSpoiltCalls() {
    if (best_.spoiling == 0 || TryWith([](Story& story) { story.spoiling = 0; })) return;
    if (what_.starts_with("died")) return;
    TryWith([calls = Play(best_).spoilt](Story& story) { story.spoilt = calls; });
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

  Story best_;
  std::string what_;
  int plays_ = 0;
};

}  // namespace

std::string PlayApart(const Story& story) {
  return InChild([&story] {
    const auto broken = Play(story).broken;
    return broken.empty() ? std::string() : broken.front();
  });
}

Story Shrink(Story story) {
  return Shrinker(std::move(story)).Run();
}

}  // namespace explorer
