#include "sim/ui_record.h"

#include "sim/bytes.h"
#include "sim/text.h"

namespace sim {
namespace {

constexpr std::size_t kTextUnits = 260;
constexpr std::size_t kHandleAt = 520, kRectAt = 528, kPointAt = 544;

std::int32_t Signed(os::BytesView bytes, std::size_t at) {
  return static_cast<std::int32_t>(GetWord(bytes, at));
}

}  // namespace

os::Bytes EncodeTexts(const std::vector<std::wstring>& texts, std::size_t units) {
  os::Bytes bytes;
  for (const auto& each : texts) {
    auto text = ToUtf16(each);
    text.resize(units * 2);
    bytes.insert(bytes.end(), text.begin(), text.end());
  }
  return bytes;
}

os::Bytes EncodeUiRecord(const UiRecord& record) {
  os::Bytes bytes = EncodeTexts({record.text}, kTextUnits);
  bytes.resize(kUiRecordSize);
  PutNumber(bytes, kHandleAt, record.handle, 8);
  const std::int32_t numbers[] = {record.rect.left,   record.rect.top, record.rect.right,
                                  record.rect.bottom, record.point.x,  record.point.y};
  for (std::size_t i = 0; i < std::size(numbers); ++i) {
    PutNumber(bytes, kRectAt + 4 * i, static_cast<std::uint32_t>(numbers[i]), 4);
  }
  return bytes;
}

std::optional<UiRecord> DecodeUiRecord(os::BytesView bytes) {
  if (bytes.size() != kUiRecordSize) return std::nullopt;
  return UiRecord{
      .text = FromUtf16(bytes.first(kHandleAt)),
      .handle = GetNumber(bytes, kHandleAt, 8),
      .rect = {Signed(bytes, kRectAt), Signed(bytes, kRectAt + 4), Signed(bytes, kRectAt + 8),
               Signed(bytes, kRectAt + 12)},
      .point = {Signed(bytes, kPointAt), Signed(bytes, kPointAt + 4)},
  };
}

}  // namespace sim
