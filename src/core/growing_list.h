#pragma once

#include "os/types.h"

namespace tessaview {

/// What `read` reads: a list whose size it asks for first. While the list grows in between (kInsufficientBuffer) it is
/// read again, five times at most; a list that still grows fails with that error.
template <class Read>
[[nodiscard]] auto ReadGrowing(Read read) {
  constexpr int kMostTries = 5;
  auto list = read();
  for (int tries = 1; tries < kMostTries && list.error() == os::kInsufficientBuffer; ++tries) list = read();
  return list;
}

}  // namespace tessaview
