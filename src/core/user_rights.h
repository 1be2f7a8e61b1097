#pragma once

#include <cstdint>

namespace tessaview {

/// The session the user sits before: the first active one, 0 when there is none or the system cannot tell.
[[nodiscard]] std::uint32_t ActiveSession();

/// While one of these lives, its thread acts as the active user, if the process runs as the system account: nobody can
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
