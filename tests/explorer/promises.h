#pragma once

#include <string>
#include <vector>

#include "tests/explorer/life.h"

// What the controller promises, whatever happens.
namespace explorer {

using Broken = std::vector<std::string>;

/// What must hold at any moment, looked at after each thing that happened.
class Watcher {
 public:
  explicit Watcher(const Life& laptop) : laptop_(laptop) {}

  void Look(Broken& broken);

 private:
  const Life& laptop_;
  std::size_t requests_ = 0, changes_ = 0;
};

/// All is well again: every device, program and user is there, and no call is spoilt. Then the user does one of
/// kLastDeeds things, and half a minute passes.
inline constexpr int kLastDeeds = 8;
void ComeToRest(Life& laptop, bool startAgain, int lastDeed);

/// What must hold then; plays on with the laptop, up to the controller's end.
[[nodiscard]] Broken LookAtRest(Life& laptop);

}  // namespace explorer
