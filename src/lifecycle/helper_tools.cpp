#include "lifecycle/helper_tools.h"

#include "core/trace_log.h"
#include "lifecycle/program_folder.h"
#include "lifecycle/user_session.h"
#include "os/files.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kWallpaperTool = L"NorvTessaviewWallpaper.exe";
constexpr const wchar_t* kPinTool = L"NorvTessaviewPin.exe";
constexpr const wchar_t* kSetTessaview = L" -SET Tessaview";

void StartTool(const wchar_t* tool, const std::wstring& arguments) {
  const auto path = PathBesideProgram(tool);
  if (os::QueryPath(path) != os::PathKind::File) {
    Log(L"[HelperTool] %ls is not there \n", path);
    return;
  }
  (void)StartInUserSession(path, QuotedArgument(path) + arguments);
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
  StartTool(kWallpaperTool, kSetTessaview);
  StartTool(kWallpaperTool, L" " + std::wstring(option) + L" " + QuotedArgument(picture));
}

}  // namespace tessaview
