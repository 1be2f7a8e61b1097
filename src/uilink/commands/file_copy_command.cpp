// The UI's command that copies a picture.
#include "core/trace_log.h"
#include "lifecycle/user_session.h"
#include "os/files.h"
#include "os/processes.h"
#include "uilink/commands/command.h"

namespace tessaview {
namespace {

/// While one of these lives, its thread acts as the session's user, if the process runs as the system account. Any
/// other account acts for itself.
class ActingAsUser {
 public:
  ActingAsUser() {
    if (!os::RunsAsSystem()) return;
    const auto token = UserToken();
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

/// With the rights of the session's user, so that nobody can have the system account read or write a file for him.
void CopyWallpaper(const FileCopyMessage& message) {
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

constexpr FileCopyCommand kCommand{
    L"COPYWALLPAPER", Match::Exact, CopyWallpaper, L"[COPYDATA] COPYWALLPAPER. \n",
    "input path, output path; copies the input over the output with the rights of the session's user"};

}  // namespace

const FileCopyCommand& WallpaperCopyCommand() {
  return kCommand;
}

}  // namespace tessaview
