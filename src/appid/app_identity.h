#pragma once

#include <string>

#include "os/types.h"

namespace tessaview {

/// What is known of the application that a window belongs to; what cannot be read is empty.
struct AppIdentity {
  std::wstring executablePath = {};  // at most 259 characters; empty when its process may not be asked
  std::wstring appUserModelId = {};  // empty for a desktop program, as are the rest
  std::wstring packageFullName = {};
  std::wstring packageFamilyName = {};
  std::wstring packagePath = {};
};

/// The identity of the process that owns a window. Logs what it finds of a package. Any thread; a fraction of a
/// millisecond.
[[nodiscard]] AppIdentity GetExePathandAUMIDbyHWND(os::WindowHandle window);

}  // namespace tessaview
