#pragma once

#include <string>
#include <string_view>

#include "os/types.h"

namespace sim {

/// A text in small letters, for names that the system compares without regard to case.
[[nodiscard]] std::wstring Lower(std::wstring_view text);

/// The last part of a path.
[[nodiscard]] std::wstring FileName(std::wstring_view path);

/// A text as UTF-16, two bytes a unit, without a NUL.
[[nodiscard]] os::Bytes ToUtf16(std::wstring_view text);

/// A text in the laptop's ANSI code page, the western European one.
[[nodiscard]] std::wstring FromCodePage1252(os::BytesView bytes);

/// Reads UTF-16 up to a NUL or the end.
[[nodiscard]] std::wstring FromUtf16(os::BytesView bytes);

}  // namespace sim
