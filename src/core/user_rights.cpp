#include "core/user_rights.h"

#include <algorithm>

#include "os/processes.h"

namespace tessaview {

std::uint32_t ActiveSession() {
  const auto sessions = os::Sessions();
  if (!sessions) return 0;
  const auto active = std::find_if(sessions->begin(), sessions->end(),
                                   [](const os::Session& session) { return session.state == os::kSessionActive; });
  return active == sessions->end() ? 0 : active->id;
}

ActingAsUser::ActingAsUser() {
  if (!os::RunsAsSystem()) return;
  const auto token = os::SessionUserToken(ActiveSession());
  impersonating_ = token && os::Impersonate(*token);
  refused_ = !impersonating_;
}

ActingAsUser::~ActingAsUser() {
  if (impersonating_) os::RevertToOwnRights();
}

}  // namespace tessaview
