#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"

namespace sim {

/// The record the UI and the controller exchange, in the UI's own words. 552 bytes: 260 UTF-16 units of text, a 64-bit
/// field at 520, a rectangle at 528, a point at 544. Written apart from the controller's codec, so that neither can
/// hide a mistake of the other.
struct UiRecord {
  std::wstring text;
  std::uint64_t handle = 0;
  os::Rect rect = {};
  os::Point point = {};

  /// The signed number in the low half of the 64-bit field.
  [[nodiscard]] std::int32_t Percent() const { return static_cast<std::int32_t>(handle & 0xFFFF'FFFF); }
};

inline constexpr std::size_t kUiRecordSize = 552;

[[nodiscard]] os::Bytes EncodeUiRecord(const UiRecord& record);
/// Nothing when the bytes are not exactly one record.
[[nodiscard]] std::optional<UiRecord> DecodeUiRecord(os::BytesView bytes);

/// Texts in a row, each in `units` UTF-16 units with NULs behind it, without its end where it is too long.
[[nodiscard]] os::Bytes EncodeTexts(const std::vector<std::wstring>& texts, std::size_t units);

}  // namespace sim
