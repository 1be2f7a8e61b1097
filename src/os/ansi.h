#pragma once

#include <string>

#include "os/types.h"

namespace os {

/// A text in the system's ANSI code page, made wide (MultiByteToWideChar, CP_ACP). Any thread; microseconds.
[[nodiscard]] std::wstring FromAnsi(BytesView text);

}  // namespace os
