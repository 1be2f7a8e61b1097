#pragma once

#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "explorer/life.h"
#include "explorer/stimuli.h"

namespace explorer {

/// What a set of lives has come to.
class Reach {
 public:
  void Note(const Stimulus& happened) { happened_.insert(&happened); }
  /// At the end of a life.
  void Note(const Life& laptop);

  /// Lists what was reached, and what there is that was not.
  void Tell(std::ostream& out) const;

 private:
  std::set<const Stimulus*> happened_;
  std::map<std::string_view, sim::Faults::Tally> doors_;
  std::set<std::wstring> texts_, threads_;
};

}  // namespace explorer
