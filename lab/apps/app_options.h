#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>

#include "os/types.h"

namespace lab {

/// What the stand-in application is asked to be.
struct AppOptions {
  std::wstring title = L"Application";
  std::wstring className = L"TessaviewLabApp";
  os::Rect area = {200, 150, 900, 600};
  bool maximizeBox = true;
  bool bare = false;          // no title bar and no borders: with the B panel as its area it fills the screen
  bool ignoresClose = false;  // WM_CLOSE is taken and does nothing
};

/// The command line, without the program's name, that asks for these, and what it asks for; nothing when there is a
/// word in it that says nothing to the application.
[[nodiscard]] std::wstring CommandLineOf(const AppOptions& options);
[[nodiscard]] std::optional<AppOptions> ReadCommandLine(std::span<wchar_t*> words);

/// A property of a window of the application's while the user moves or sizes it.
inline constexpr wchar_t kInMoveSize[] = L"TessaviewLabInMoveSize";

/// Posted to a window of the application's, the message registered by this name makes it serve nothing any more.
inline constexpr wchar_t kAppHang[] = L"TessaviewLabAppHang";

}  // namespace lab
