#include "core/console.h"

#include "os/processes.h"

namespace tessaview {

// Asked anew each time: the session may leave in the middle of something, and be told of it only afterwards.
bool IsAtConsole() {
  const auto own = os::OwnSession();
  return !own || os::ConsoleSession() == *own;
}

}  // namespace tessaview
