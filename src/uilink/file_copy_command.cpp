#include "uilink/file_copy_command.h"

#include "core/trace_log.h"
#include "lifecycle/user_session.h"
#include "os/files.h"
#include "os/processes.h"

namespace tessaview {
namespace {

/// Lets the calling thread act as the active user while it lives, if the process runs as the system account. Any other
/// account acts for itself.
class ActingAsUser {
 public:
  ActingAsUser() {
    if (!os::RunsAsSystem()) return;
    const auto token = os::SessionUserToken(ActiveSession());
    impersonating_ = token && os::Impersonate(*token);
    refused_ = !impersonating_;
  }
  ActingAsUser(const ActingAsUser&) = delete;
  ActingAsUser& operator=(const ActingAsUser&) = delete;
  ~ActingAsUser() {
    if (impersonating_) os::RevertToOwnRights();
  }

  [[nodiscard]] bool IsRefused() const { return refused_; }

 private:
  bool impersonating_ = false;
  bool refused_ = false;
};

}  // namespace

void CopyWallpaper(const FileCopyMessage& message) {
  Log(L"[COPYDATA] COPYWALLPAPER. \n");
  Log(L"InputPath = %ls", message.inputPath);
  Log(L"OutputPath = %ls", message.outputPath);

  const ActingAsUser user;
  if (user.IsRefused()) {
    Log(L"[COPYDATA] COPYWALLPAPER, there is no user to copy for. \n");
    return;
  }
  if (os::QueryPath(message.inputPath) == os::PathKind::Missing) {
    Log(L"[COPYDATA] COPYWALLPAPER, InputPath is not exist. \n");
    return;
  }
  const auto copied = os::OverwriteByCopy(message.inputPath, message.outputPath);
  if (!copied) Log(L"[COPYDATA] COPYWALLPAPER, CopyFile fail Error code = %d *****", copied.error());
}

}  // namespace tessaview
