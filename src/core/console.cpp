#include "core/console.h"

#include "core/state.h"
#include "os/processes.h"

namespace tessaview {
namespace {

Shared<bool> gWasAbsent;

}  // namespace

// Asked anew each time: the session may leave in the middle of something, and be told of it only afterwards.
bool IsAtConsole() {
  const auto own = os::OwnSession();
  if (!own || os::ConsoleSession() == *own) return true;
  gWasAbsent.set(true);
  return false;
}

bool ClaimAbsence() {
  return gWasAbsent.exchange(false);
}

}  // namespace tessaview
