#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/numbers.h"
#include "os/types.h"

namespace fuzz {

/// What a fuzzer made up, taken from its front. What is missing at its end counts as zeros.
class Input {
 public:
  explicit Input(os::BytesView bytes) : rest_(bytes) {}

  [[nodiscard]] bool empty() const { return rest_.empty(); }

  /// The next bytes; fewer at the end.
  os::BytesView Bytes(std::size_t count) {
    const auto taken = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return taken;
  }

  os::BytesView Rest() { return Bytes(rest_.size()); }

  /// The bytes before a mark, which is taken too; all that is left without one.
  os::BytesView Until(const std::string& mark) {
    const auto at = std::search(rest_.begin(), rest_.end(), mark.begin(), mark.end());
    const auto taken = Bytes(static_cast<std::size_t>(at - rest_.begin()));
    Bytes(mark.size());
    return taken;
  }

  /// A little-endian number.
  template <class Unsigned>
  Unsigned Number() {
    const auto taken = Bytes(sizeof(Unsigned));
    os::Bytes whole(taken.begin(), taken.end());
    whole.resize(sizeof(Unsigned));
    return tessaview::GetLittleEndian<Unsigned>(whole, 0);
  }

  /// A text of one line, a byte a character.
  std::wstring Line() {
    const auto line = Until("\n");
    return {line.begin(), line.end()};
  }

 private:
  os::BytesView rest_;
};

}  // namespace fuzz
