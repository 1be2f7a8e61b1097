#include "core/trace_events.h"

#include "core/text.h"

namespace tessaview {
namespace {

constexpr std::uint8_t kNoTags = 0;
constexpr std::uint8_t kUnicodeString = 1;  // TlgInUNICODESTRING

void AppendName(os::Bytes& block, std::string_view name) {
  block.insert(block.end(), name.begin(), name.end());
  block.push_back(0);
}

/// Fills in the size that the block begins with.
os::Bytes Sized(os::Bytes block) {
  block[0] = static_cast<std::uint8_t>(block.size() & 0xFF);
  block[1] = static_cast<std::uint8_t>(block.size() >> 8);
  return block;
}

}  // namespace

const os::Bytes& ProviderTraits() {
  static const os::Bytes traits = [] {
    os::Bytes block(2);
    AppendName(block, "TessaviewServiceLogger");
    return Sized(std::move(block));
  }();
  return traits;
}

os::Bytes TextEventMetadata(std::string_view event, std::string_view field) {
  os::Bytes block(2);
  block.push_back(kNoTags);
  AppendName(block, event);
  AppendName(block, field);
  block.push_back(kUnicodeString);
  return Sized(std::move(block));
}

os::Bytes EventText(std::wstring_view text) {
  os::Bytes bytes;
  AppendUtf16(bytes, text);
  bytes.insert(bytes.end(), 2, 0);
  return bytes;
}

}  // namespace tessaview
