#include "core/user_rights.h"

#include <algorithm>

namespace tessaview {
namespace {

/// The first active session, 0 when there is none or the system cannot tell.
std::uint32_t ActiveSession() {
  const auto sessions = os::Sessions();
  if (!sessions) return 0;
  const auto active = std::find_if(sessions->begin(), sessions->end(),
                                   [](const os::Session& session) { return session.state == os::kSessionActive; });
  return active == sessions->end() ? 0 : active->id;
}

}  // namespace

os::Result<os::Token> UserToken() {
  constexpr std::uint32_t kNoUser = 1008;  // ERROR_NO_TOKEN: nobody is signed in to the session
  if (const auto own = os::OwnSession()) {
    auto token = os::SessionUserToken(*own);
    if (token || token.error() != kNoUser) return token;
  }
  return os::SessionUserToken(ActiveSession());
}

ActingAsUser::ActingAsUser() {
  if (!os::RunsAsSystem()) return;
  const auto token = UserToken();
  impersonating_ = token && os::Impersonate(*token);
  refused_ = !impersonating_;
}

ActingAsUser::~ActingAsUser() {
  if (impersonating_) os::RevertToOwnRights();
}

}  // namespace tessaview
