#pragma once

#include <cstddef>
#include <string_view>

#include "os/types.h"

namespace tessaview {

/// How much of a file's beginning IsPicture wants to see, in bytes.
inline constexpr std::size_t kPictureStart = 12;

/// Whether a file that begins with these bytes is a picture: JPEG, PNG, BMP, GIF, TIFF, WebP, HEIF or AVIF.
[[nodiscard]] bool IsPicture(os::BytesView start);

/// Whether a path names a file on a drive by its letter, and nothing else: no share, no device, no stream of a file, no
/// name that the system would change, as it does with "a.exe.". Asks nobody; the file need not be there.
[[nodiscard]] bool IsPlainLocalPath(std::wstring_view path);

/// Whether a path ends in the name of a picture: with the extension of one in any case, or without any.
[[nodiscard]] bool HasPictureName(std::wstring_view path);

}  // namespace tessaview
