#include "sim/trace_event.h"

#include <algorithm>
#include <cstdint>

#include "sim/bytes.h"
#include "sim/text.h"

namespace sim {
namespace {

constexpr std::uint8_t kUnicodeString = 1;

/// Reads a block from its front to its end.
class Block {
 public:
  explicit Block(os::BytesView bytes) : left_(bytes) {}

  /// The 16-bit size with which a block begins must be that of the whole.
  bool TakeOwnSize() {
    const auto whole = left_.size();
    if (whole < 2 || GetShort(left_, 0) != whole) return false;
    left_ = left_.subspan(2);
    return true;
  }

  bool TakeByte(std::uint8_t expected) {
    if (left_.empty() || left_[0] != expected) return false;
    left_ = left_.subspan(1);
    return true;
  }

  /// A name with its NUL; a name has at least one character.
  std::optional<std::string> TakeName() {
    const auto end = std::find(left_.begin(), left_.end(), std::uint8_t{0});
    if (end == left_.end() || end == left_.begin()) return std::nullopt;
    std::string name(left_.begin(), end);
    left_ = left_.subspan(name.size() + 1);
    return name;
  }

  [[nodiscard]] bool AtEnd() const { return left_.empty(); }

 private:
  os::BytesView left_;
};

/// The data of a text field is the text with its NUL, and nothing after it.
std::optional<std::wstring> DecodeText(os::BytesView data) {
  if (data.size() < 2 || data.size() % 2 != 0) return std::nullopt;
  for (std::size_t at = 0; at < data.size(); at += 2) {
    const bool isNul = GetShort(data, at) == 0;
    if (isNul != (at + 2 == data.size())) return std::nullopt;
  }
  return FromUtf16(data);
}

}  // namespace

std::optional<std::string> DecodeProviderTraits(os::BytesView traits) {
  Block block(traits);
  if (!block.TakeOwnSize()) return std::nullopt;
  auto name = block.TakeName();
  return block.AtEnd() ? name : std::nullopt;
}

std::optional<TraceEvent> DecodeTraceEvent(os::BytesView providerTraits, os::BytesView eventMetadata,
                                           os::BytesView data) {
  const auto provider = DecodeProviderTraits(providerTraits);
  Block block(eventMetadata);
  if (!provider || !block.TakeOwnSize() || !block.TakeByte(0)) return std::nullopt;
  const auto name = block.TakeName();
  const auto field = block.TakeName();
  const bool isText = block.TakeByte(kUnicodeString) && block.AtEnd();
  const auto text = DecodeText(data);
  if (!name || !field || !isText || !text) return std::nullopt;
  return TraceEvent{*provider, *name, *field, *text};
}

}  // namespace sim
