#pragma once

#include <string>
#include <string_view>

#include "os/types.h"

namespace tessaview {

/// A text with every character in upper case, each taken by itself.
[[nodiscard]] std::wstring UpperCased(std::wstring text);

/// Appends a text as UTF-16, little-endian, without a terminator. Half a surrogate pair is written as it stands.
void AppendUtf16(os::Bytes& bytes, std::wstring_view text);

/// Reads little-endian UTF-16 up to the first NUL or the end of the bytes, whichever comes first; an odd last byte is
/// left out.
std::wstring ReadUtf16(os::BytesView bytes);

}  // namespace tessaview
