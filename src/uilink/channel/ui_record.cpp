#include "uilink/channel/ui_record.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"

namespace tessaview {
namespace {

constexpr std::size_t kTextBytes = 520;  // 260 units, the last one always NUL
constexpr std::size_t kLongestTextBytes = kTextBytes - 2;
constexpr std::size_t kHandleAt = 520, kRectAt = 528, kPointAt = 544;
constexpr std::size_t kFileCopySize = 3 * kTextBytes;

void PutNumber(UiRecord& record, std::size_t offset, std::int32_t value) {
  PutLittleEndian(&record[offset], static_cast<std::uint32_t>(value));
}

std::int32_t GetNumber(os::BytesView record, std::size_t offset) {
  return static_cast<std::int32_t>(GetLittleEndian<std::uint32_t>(record, offset));
}

}  // namespace

UiRecord EncodeUiMessage(const UiMessage& message) {
  UiRecord record{};
  os::Bytes text;
  AppendUtf16(text, message.text);
  std::copy_n(text.begin(), std::min(text.size(), kLongestTextBytes), record.begin());
  PutLittleEndian(&record[kHandleAt], message.handle);
  PutNumber(record, kRectAt, message.rect.left);
  PutNumber(record, kRectAt + 4, message.rect.top);
  PutNumber(record, kRectAt + 8, message.rect.right);
  PutNumber(record, kRectAt + 12, message.rect.bottom);
  PutNumber(record, kPointAt, message.point.x);
  PutNumber(record, kPointAt + 4, message.point.y);
  return record;
}

std::optional<UiMessage> DecodeUiMessage(os::BytesView record) {
  if (record.size() != kUiRecordSize) return std::nullopt;
  return UiMessage{.text = ReadUtf16(record.first(kTextBytes)),
                   .handle = GetLittleEndian<std::uint64_t>(record, kHandleAt),
                   .rect = {GetNumber(record, kRectAt), GetNumber(record, kRectAt + 4), GetNumber(record, kRectAt + 8),
                            GetNumber(record, kRectAt + 12)},
                   .point = {GetNumber(record, kPointAt), GetNumber(record, kPointAt + 4)}};
}

std::optional<FileCopyMessage> DecodeFileCopy(os::BytesView record) {
  if (record.size() != kFileCopySize) return std::nullopt;
  return FileCopyMessage{.command = ReadUtf16(record.first(kTextBytes)),
                         .inputPath = ReadUtf16(record.subspan(kTextBytes, kTextBytes)),
                         .outputPath = ReadUtf16(record.subspan(2 * kTextBytes, kTextBytes))};
}

}  // namespace tessaview
