#include "explorer/reach.h"

#include <ostream>

namespace explorer {
namespace {

std::string Narrow(const std::wstring& text) {
  return {text.begin(), text.end()};
}

template <class Names>
void TellNames(std::ostream& out, const char* what, const Names& names) {
  out << what << " (" << names.size() << "):";
  for (const auto& name : names) out << " \"" << Narrow(name) << '"';
  out << '\n';
}

}  // namespace

void Reach::Note(const Life& laptop) {
  for (const auto* door : sim::AllDoors()) {
    const auto tally = laptop.faults.TallyOf(*door);
    doors_[door->name].calls += tally.calls;
    doors_[door->name].failures += tally.failures;
  }
  texts_.insert(laptop.told.begin(), laptop.told.end());
  for (const auto& writer : laptop.trace.Writers()) threads_.insert(writer);
}

void Reach::Tell(std::ostream& out) const {
  std::set<std::wstring> uncalled, unspoilt;
  for (const auto& [name, tally] : doors_) {
    if (tally.calls == 0) uncalled.emplace(name.begin(), name.end());
    if (tally.calls != 0 && tally.failures == 0) unspoilt.emplace(name.begin(), name.end());
  }
  out << doors_.size() << " door functions\n";
  TellNames(out, "never called", uncalled);
  TellNames(out, "called, and never failed", unspoilt);
  TellNames(out, "texts the UI got", texts_);
  TellNames(out, "threads that wrote to the log", threads_);
  for (const auto& stimulus : Stimuli()) {
    if (!happened_.contains(&stimulus)) out << "never happened: " << stimulus.words << '\n';
  }
}

}  // namespace explorer
