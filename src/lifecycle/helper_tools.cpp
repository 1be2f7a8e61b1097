#include "lifecycle/helper_tools.h"

#include <deque>
#include <optional>
#include <utility>

#include "core/state.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "lifecycle/program_folder.h"
#include "lifecycle/user_session.h"
#include "os/files.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kWallpaperTool = L"NorvTessaviewWallpaper.exe";
constexpr const wchar_t* kPinTool = L"NorvTessaviewPin.exe";
constexpr const wchar_t* kSetTessaview = L" -SET Tessaview";

constexpr std::uint32_t kLongestPreparationMs = 5000;

/// Nothing, with a log line, when the tool is not there or cannot be started.
std::optional<os::Process> StartTool(const wchar_t* tool, const std::wstring& arguments) {
  const auto path = PathBesideProgram(tool);
  if (os::QueryPath(path) == os::PathKind::File) return StartInUserSession(path, QuotedArgument(path) + arguments);
  Log(L"[HelperTool] %ls is not there \n", path);
  return std::nullopt;
}

/// Pictures that wait to be set, as arguments of the wallpaper tool. One thread at most is at work on them.
struct Wallpapers {
  std::deque<std::wstring> waiting;
  bool isAtWork = false;
};
Shared<Wallpapers> gWallpapers;

/// Takes note of a picture. True when nobody is at work yet: the caller has to see to it.
bool AddWallpaper(const std::wstring& arguments) {
  return gWallpapers.Update([&](Wallpapers& wallpapers) {
    wallpapers.waiting.push_back(arguments);
    return !std::exchange(wallpapers.isAtWork, true);
  });
}

std::optional<std::wstring> NextWallpaper() {
  return gWallpapers.Update([](Wallpapers& wallpapers) -> std::optional<std::wstring> {
    wallpapers.isAtWork = !wallpapers.waiting.empty();
    if (!wallpapers.isAtWork) return std::nullopt;
    auto next = std::move(wallpapers.waiting.front());
    wallpapers.waiting.pop_front();
    return next;
  });
}

void SetWaitingWallpapers() {
  while (const auto picture = NextWallpaper()) {
    const auto preparation = StartTool(kWallpaperTool, kSetTessaview);
    // However the wait ends, the picture is what the user asked for.
    if (preparation) (void)os::WaitForProcess(*preparation, kLongestPreparationMs);
    StartTool(kWallpaperTool, *picture);
  }
}

}  // namespace

std::wstring QuotedArgument(const std::wstring& argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;  // in a row; they need doubling only before a quotation mark
  for (const auto character : argument) {
    if (character == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = character == L'\\' ? backslashes + 1 : 0;
    quoted += character;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

void StartHelperTools() {
  StartTool(kWallpaperTool, kSetTessaview);
  StartTool(kPinTool, kSetTessaview);
}

void SetWallpaper(const wchar_t* option, const std::wstring& picture) {
  const bool isFirst = AddWallpaper(L" " + std::wstring(option) + L" " + QuotedArgument(picture));
  // Not on the caller's thread: a tool that changes the desktop tells every window, and waits for the caller's too.
  if (isFirst && !StartThread(L"wallpaper", SetWaitingWallpapers)) SetWaitingWallpapers();
}

}  // namespace tessaview
