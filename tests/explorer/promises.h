#pragma once

#include <string>
#include <vector>

#include "explorer/life.h"

// What the controller promises, whatever happens.
namespace explorer {

using Broken = std::vector<std::string>;

/// What must hold at any moment, looked at after each thing that happened.
class Watcher {
 public:
  [[nodiscard]] Broken Look(const Life& laptop);

 private:
  std::size_t requests_ = 0, changes_ = 0;
};

/// What must hold once all has come to rest; plays on with the laptop, up to the controller's end.
[[nodiscard]] Broken LookAtRest(Life& laptop);

}  // namespace explorer
