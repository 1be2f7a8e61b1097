#pragma once

#include "os/processes.h"

namespace tessaview {

/// The token of the user for whom this process acts: of its own session's, and only where that has none, of the first
/// active session's. One user's programs ask this process for something, and must not get it with another's rights. Any
/// thread.
[[nodiscard]] os::Result<os::Token> UserToken();

/// While one of these lives, its thread acts as that user, if the process runs as the system account: nobody can
/// have that account read, write or end for him what he may not. Any other account acts for itself. Any thread; not
/// across a wait for another program, because what is served meanwhile would be done as the user, too.
class ActingAsUser {
 public:
  ActingAsUser();
  ActingAsUser(const ActingAsUser&) = delete;
  ActingAsUser& operator=(const ActingAsUser&) = delete;
  ~ActingAsUser();

  /// There is no user to act for: nothing is to be done.
  [[nodiscard]] bool IsRefused() const { return refused_; }

 private:
  bool impersonating_ = false;
  bool refused_ = false;
};

}  // namespace tessaview
