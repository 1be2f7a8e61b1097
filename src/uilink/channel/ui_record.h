#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "os/types.h"

namespace tessaview {

/// What `wParam` of a copy-data message says of its record.
enum class RecordKind : std::uint64_t {
  TouchReport = 101,  // to the UI: a raw HID report
  UiMessage = 102,    // both ways
  FileCopy = 104,     // from the UI
};

/// The text message exchanged with the UI. On the wire a fixed record of 552 bytes, little-endian:
///
///     offset  size  field
///          0   520  text    UTF-16, NUL-terminated, at most 259 units before the NUL
///        520     8  handle  a window; or, in its low 32 bits, a signed number
///        528    16  rect    four signed 32-bit numbers: left, top, right, bottom
///        544     8  point   two signed 32-bit numbers: x, y
struct UiMessage {
  std::wstring text = {};
  std::uint64_t handle = 0;
  os::Rect rect = {};
  os::Point point = {};

  /// Only the low half of a window's handle tells it; the system does not look at the other.
  [[nodiscard]] os::WindowHandle Window() const { return static_cast<os::WindowHandle>(handle & 0xFFFF'FFFF); }
  [[nodiscard]] std::int32_t Number() const { return static_cast<std::int32_t>(handle & 0xFFFFFFFF); }
};

inline constexpr std::size_t kUiRecordSize = 552;
using UiRecord = std::array<std::uint8_t, kUiRecordSize>;

/// The message as a record; a longer text is cut.
[[nodiscard]] UiRecord EncodeUiMessage(const UiMessage& message);

/// The message of a record, its text up to the first NUL or the end of its field; empty when the record is not exactly
/// 552 bytes long.
[[nodiscard]] std::optional<UiMessage> DecodeUiMessage(os::BytesView record);

/// A file to copy for the UI: three UTF-16 texts of 260 units each, NUL-terminated, 1,560 bytes in all.
struct FileCopyMessage {
  std::wstring command, inputPath, outputPath;
};

/// The message of a file-copy record; empty when it is not exactly 1,560 bytes long.
[[nodiscard]] std::optional<FileCopyMessage> DecodeFileCopy(os::BytesView record);

}  // namespace tessaview
