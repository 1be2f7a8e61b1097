#include "core/text.h"

#include <cwctype>

namespace tessaview {
namespace {

// Only a 32-bit wchar_t can hold what takes two UTF-16 units; where it has 16 bits, the text is UTF-16 already.
constexpr bool kWideIsUtf32 = sizeof(wchar_t) == 4;

constexpr char32_t kFirstBeyond16Bits = 0x10000;
constexpr char16_t kHighSurrogate = 0xD800, kLowSurrogate = 0xDC00, kPastSurrogates = 0xE000;

void AppendUnit(os::Bytes& bytes, char32_t unit) {
  bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
  bytes.push_back(static_cast<std::uint8_t>(unit >> 8 & 0xFF));
}

char16_t UnitAt(os::BytesView bytes, std::size_t index) {
  return static_cast<char16_t>(bytes[2 * index] | bytes[2 * index + 1] << 8);
}

bool IsPair(char16_t high, char16_t low) {
  return high >= kHighSurrogate && high < kLowSurrogate && low >= kLowSurrogate && low < kPastSurrogates;
}

}  // namespace

std::wstring UpperCased(std::wstring text) {
  for (auto& character : text) character = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
  return text;
}

void AppendUtf16(os::Bytes& bytes, std::wstring_view text) {
  for (const auto character : text) {
    const auto point = static_cast<char32_t>(character);
    if (point < kFirstBeyond16Bits) {
      AppendUnit(bytes, point);
    } else {
      AppendUnit(bytes, kHighSurrogate + ((point - kFirstBeyond16Bits) >> 10));
      AppendUnit(bytes, kLowSurrogate + (point & 0x3FF));
    }
  }
}

std::wstring ReadUtf16(os::BytesView bytes) {
  const std::size_t units = bytes.size() / 2;
  std::wstring text;
  for (std::size_t i = 0; i < units; ++i) {
    const char16_t unit = UnitAt(bytes, i);
    if (unit == 0) break;
    const char16_t next = i + 1 < units ? UnitAt(bytes, i + 1) : u'\0';
    if (kWideIsUtf32 && IsPair(unit, next)) {
      text += static_cast<wchar_t>(kFirstBeyond16Bits + ((char32_t{unit} - kHighSurrogate) << 10) +
                                   (char32_t{next} - kLowSurrogate));
      ++i;
    } else {
      text += static_cast<wchar_t>(unit);
    }
  }
  return text;
}

}  // namespace tessaview
