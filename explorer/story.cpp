#include "explorer/story.h"

#include <numeric>
#include <random>
#include <regex>
#include <sstream>

#include "explorer/rest.h"

namespace explorer {
namespace {

/// Numbers one after the other, so that a seed is the same life with every compiler.
class Chance {
 public:
  explicit Chance(std::uint32_t seed) : random_(seed) {}
  int UpTo(int exclusive) {
    return exclusive <= 1 ? 0 : static_cast<int>(random_() % static_cast<unsigned>(exclusive));
  }
  bool OneIn(int number) { return UpTo(number) == 0; }

 private:
  std::mt19937 random_;
};

const Stimulus& DrawStimulus(Chance& chance) {
  static const int whole = std::accumulate(Stimuli().begin(), Stimuli().end(), 0, [](int sum, const Stimulus& each) {
    return sum + static_cast<int>(each.weight);
  });
  auto at = chance.UpTo(whole);
  for (const auto& each : Stimuli()) {
    at -= static_cast<int>(each.weight);
    if (at < 0) return each;
  }
  return Stimuli().front();
}

Step DrawStep(Chance& chance) {
  Step step{.what = &DrawStimulus(chance), .numbers = {}, .pauseMs = kUntilQuiet};
  for (std::size_t i = 0; i < step.numbers.size(); ++i) step.numbers[i] = chance.UpTo(step.what->upTo[i]);
  const auto kind = chance.UpTo(4);
  if (kind == 0) step.pauseMs = 0;
  if (kind == 1) step.pauseMs = chance.UpTo(300);
  if (kind == 2) step.pauseMs = chance.UpTo(4000);
  return step;
}

Beginning DrawBeginning(std::uint32_t seed, Chance& chance) {
  Beginning beginning;
  auto& laptop = beginning.laptop;
  laptop.seed = seed;
  laptop.interleaving = chance.OneIn(2);
  laptop.turnsUndocumented = chance.OneIn(2);
  if (!chance.OneIn(10)) {  // else there is no settings file yet
    const auto level = static_cast<std::uint32_t>(10 + chance.UpTo(246));
    laptop.backlight = laptop.backlightDC = level;
    laptop.saved = chance.OneIn(3) ? L"Off" : L"On";
  }
  laptop.generation = 1 + chance.UpTo(2);
  laptop.setupComplete = !chance.OneIn(12);
  laptop.uiRunning = chance.OneIn(2);
  beginning.uiAsksBack = chance.OneIn(3);
  if (chance.OneIn(4)) beginning.uiHandlesForMs = static_cast<std::uint32_t>(chance.UpTo(300));
  beginning.hooksForgiveNothing = chance.OneIn(5);
  beginning.hooksDieAtWaking = chance.OneIn(5);
  beginning.primaryElsewhere = chance.OneIn(6);
  return beginning;
}

}  // namespace

Story Draw(std::uint32_t seed, std::size_t steps) {
  Chance chance(seed);
  Story story{.beginning = DrawBeginning(seed, chance), .steps = {}};
  story.spoiling = chance.OneIn(3) ? 0 : seed;
  story.startsAgain = chance.OneIn(3);
  story.last = chance.UpTo(kLastDeeds);
  for (; steps > 0; --steps) story.steps.push_back(DrawStep(chance));
  return story;
}

// ---- As words ----

namespace {

std::string Words(const Step& step) {
  std::string words = step.what->words;
  for (std::size_t i = 0; i < step.numbers.size(); ++i) {
    const std::regex name(std::string("\\b") + "abc"[i] + "\\b");
    words = std::regex_replace(words, name, std::to_string(step.numbers[i]));
  }
  // A command is known by its text.
  if (words.find("Command(") != std::string::npos) {
    const auto& text = Life::CommandText(step.numbers[0]);
    words += ";  // " + std::string(text.begin(), text.end());
  }
  return words;
}

void TellSpoilt(const SpoiltCall& spoilt, std::ostream& out) {
  out << "      {\"" << spoilt.door << "\", " << spoilt.call << ", {";
  if (spoilt.how.error) out << ".error = " << *spoilt.how.error;
  if (spoilt.how.delayMs != 0) out << ".delayMs = " << spoilt.how.delayMs;
  if (spoilt.how.longestAnswer) out << ".longestAnswer = " << *spoilt.how.longestAnswer;
  out << "}},\n";
}

void TellBeginning(const Beginning& beginning, std::ostream& out) {
  const auto& laptop = beginning.laptop;
  out << "  Life laptop({.laptop = {.seed = " << laptop.seed;
  if (laptop.interleaving) out << ", .interleaving = true";
  if (laptop.turnsUndocumented) out << ", .turnsUndocumented = true";
  if (laptop.backlight) out << ", .backlight = " << *laptop.backlight;
  if (laptop.backlightDC) out << ", .backlightDC = " << *laptop.backlightDC;
  if (laptop.saved) out << ", .saved = L\"" << (*laptop.saved == L"On" ? "On" : "Off") << "\"";
  out << ", .generation = " << laptop.generation;
  if (!laptop.setupComplete) out << ", .setupComplete = false";
  if (laptop.uiRunning) out << ", .uiRunning = true";
  out << "}";
  if (beginning.uiAsksBack) out << ", .uiAsksBack = true";
  if (beginning.uiHandlesForMs != 0) out << ", .uiHandlesForMs = " << beginning.uiHandlesForMs;
  if (beginning.hooksForgiveNothing) out << ", .hooksForgiveNothing = true";
  if (beginning.hooksDieAtWaking) out << ", .hooksDieAtWaking = true";
  if (beginning.primaryElsewhere) out << ", .primaryElsewhere = true";
  out << "});\n";
}

}  // namespace

std::string Tell(const Story& story) {
  std::ostringstream out;
  TellBeginning(story.beginning, out);
  if (story.spoilt && !story.spoilt->empty()) {
    out << "  laptop.faults.plan = ListedPlan({\n";
    for (const auto& spoilt : *story.spoilt) TellSpoilt(spoilt, out);
    out << "  });\n";
  }
  out << "  laptop.Boot(kLongestStartMs);\n  {\n    const auto atTheSameTime = laptop.Quietly();\n";
  for (const auto& step : story.steps) {
    out << "    " << Words(step) << ";\n";
    if (step.pauseMs == kUntilQuiet) out << "    laptop.Settle();\n";
    if (step.pauseMs > 0) out << "    laptop.Advance(" << step.pauseMs << ");\n";
  }
  out << "  }\n  ComeToRest(laptop, " << (story.startsAgain ? "true" : "false") << ", " << story.last << ");\n"
      << "  EXPECT_EQ(LookAtRest(laptop), Broken{});\n";
  return out.str();
}

}  // namespace explorer
