// The UI's command that copies a picture.
#include "core/trace_log.h"
#include "core/user_rights.h"
#include "os/files.h"
#include "uilink/commands/command.h"
#include "uilink/commands/picture_files.h"

namespace tessaview {
namespace {

/// Why these paths are none to copy between; null when they are.
const wchar_t* WhyRefused(const FileCopyMessage& message) {
  if (!IsPlainLocalPath(message.inputPath)) return L"InputPath is no plain local path";
  if (!IsPlainLocalPath(message.outputPath)) return L"OutputPath is no plain local path";
  return HasPictureName(message.outputPath) ? nullptr : L"OutputPath has no picture's extension";
}

/// Any program of the session can ask for a copy, also one that may do little itself. So it is made with the rights of
/// the user and not of the system, of pictures only, and to where only pictures are.
void CopyWallpaper(const FileCopyMessage& message) {
  Log(L"InputPath = %ls", message.inputPath);
  Log(L"OutputPath = %ls", message.outputPath);
  if (const auto* const reason = WhyRefused(message)) {
    Log(L"[COPYDATA] COPYWALLPAPER refused, %ls. \n", reason);
    return;
  }

  const ActingAsUser user;
  if (user.IsRefused()) {
    Log(L"[COPYDATA] COPYWALLPAPER, there is no user to copy for. \n");
    return;
  }
  if (os::QueryPath(message.inputPath) == os::PathKind::Missing) {
    Log(L"[COPYDATA] COPYWALLPAPER, InputPath is not exist. \n");
    return;
  }
  const auto start = os::ReadFileStart(message.inputPath, kPictureStart);
  if (!start || !IsPicture(*start)) {
    Log(L"[COPYDATA] COPYWALLPAPER refused, InputPath is no picture, error = %d. \n", start.error());
    return;
  }
  const auto copied = os::OverwriteByCopy(message.inputPath, message.outputPath);
  if (!copied) Log(L"[COPYDATA] COPYWALLPAPER, CopyFile fail Error code = %d *****", copied.error());
}

constexpr FileCopyCommand kCommand{
    L"COPYWALLPAPER", Match::Exact, CopyWallpaper, L"[COPYDATA] COPYWALLPAPER. \n",
    "input path, output path; copies the input, a picture, over the output with the rights of the session's user"};

}  // namespace

const FileCopyCommand& WallpaperCopyCommand() {
  return kCommand;
}

}  // namespace tessaview
