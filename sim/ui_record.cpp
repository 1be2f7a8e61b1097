#include "sim/ui_record.h"

namespace sim {
namespace {

constexpr std::size_t kTextUnits = 260;
constexpr std::size_t kHandleAt = 520, kRectAt = 528, kPointAt = 544;

std::vector<std::uint16_t> ToUtf16(const std::wstring& text) {
  std::vector<std::uint16_t> units;
  for (const wchar_t character : text) {
    const auto code = static_cast<std::uint32_t>(character);
    if (code >= 0x10000) {
      units.push_back(static_cast<std::uint16_t>(0xD800 + ((code - 0x10000) >> 10)));
      units.push_back(static_cast<std::uint16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
    } else {
      units.push_back(static_cast<std::uint16_t>(code));
    }
  }
  return units;
}

std::wstring FromUtf16(const std::vector<std::uint16_t>& units) {
  std::wstring text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const std::uint32_t unit = units[i];
    const bool pair = unit >= 0xD800 && unit < 0xDC00 && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00;
    const std::uint32_t code = pair ? 0x10000 + ((unit - 0xD800) << 10) + (units[++i] - 0xDC00U) : unit;
    text.push_back(static_cast<wchar_t>(code));
  }
  return text;
}

void Put(os::Bytes& bytes, std::size_t at, std::uint64_t value, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

std::uint64_t Get(os::BytesView bytes, std::size_t at, std::size_t size) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value |= static_cast<std::uint64_t>(bytes[at + i]) << (8 * i);
  return value;
}

std::int32_t GetNumber(os::BytesView bytes, std::size_t at) {
  return static_cast<std::int32_t>(Get(bytes, at, 4));
}

}  // namespace

os::Bytes EncodeTexts(const std::vector<std::wstring>& texts, std::size_t units) {
  os::Bytes bytes(texts.size() * units * 2);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    auto text = ToUtf16(texts[i]);
    text.resize(units);
    for (std::size_t unit = 0; unit < units; ++unit) Put(bytes, (i * units + unit) * 2, text[unit], 2);
  }
  return bytes;
}

os::Bytes EncodeUiRecord(const UiRecord& record) {
  os::Bytes bytes = EncodeTexts({record.text}, kTextUnits);
  bytes.resize(kUiRecordSize);
  Put(bytes, kHandleAt, record.handle, 8);
  const std::int32_t numbers[] = {record.rect.left,   record.rect.top, record.rect.right,
                                  record.rect.bottom, record.point.x,  record.point.y};
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    Put(bytes, kRectAt + 4 * i, static_cast<std::uint32_t>(numbers[i]), 4);
  }
  return bytes;
}

std::optional<UiRecord> DecodeUiRecord(os::BytesView bytes) {
  if (bytes.size() != kUiRecordSize) return std::nullopt;
  std::vector<std::uint16_t> units;
  for (std::size_t at = 0; at < kHandleAt; at += 2) {
    const auto unit = static_cast<std::uint16_t>(Get(bytes, at, 2));
    if (unit == 0) break;
    units.push_back(unit);
  }
  return UiRecord{
      .text = FromUtf16(units),
      .handle = Get(bytes, kHandleAt, 8),
      .rect = {GetNumber(bytes, kRectAt), GetNumber(bytes, kRectAt + 4), GetNumber(bytes, kRectAt + 8),
               GetNumber(bytes, kRectAt + 12)},
      .point = {GetNumber(bytes, kPointAt), GetNumber(bytes, kPointAt + 4)},
  };
}

}  // namespace sim
