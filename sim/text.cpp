#include "sim/text.h"

#include <cwctype>

#include "sim/bytes.h"

namespace sim {

std::wstring Lower(std::wstring_view text) {
  std::wstring lower(text);
  for (auto& character : lower) character = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
  return lower;
}

std::wstring FileName(std::wstring_view path) {
  return std::wstring(path.substr(path.find_last_of(L'\\') + 1));
}

os::Bytes ToUtf16(std::wstring_view text) {
  os::Bytes bytes;
  const auto add = [&bytes](std::uint32_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  };
  for (const wchar_t character : text) {
    const auto code = static_cast<char32_t>(character);
    if (code >= 0x10000) {
      add(0xD800 + ((code - 0x10000) >> 10));
      add(0xDC00 + (code & 0x3FF));
    } else {
      add(code);
    }
  }
  return bytes;
}

std::wstring FromUtf16(os::BytesView bytes) {
  std::wstring text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    std::uint32_t code = GetShort(bytes, at);
    if (code == 0) break;
    const std::uint32_t next = at + 3 < bytes.size() ? GetShort(bytes, at + 2) : 0;
    if ((code & 0xFC00) == 0xD800 && (next & 0xFC00) == 0xDC00) {
      code = 0x10000 + ((code & 0x3FF) << 10) + (next & 0x3FF);
      at += 2;
    }
    text += static_cast<wchar_t>(code);
  }
  return text;
}

std::wstring FromCodePage1252(os::BytesView bytes) {
  // What stands for 0x80 to 0x9F; every other byte is the number of its character.
  constexpr std::wstring_view kFrom80 =
      L"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
      L"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";
  std::wstring text;
  for (const auto byte : bytes) text += byte >= 0x80 && byte < 0xA0 ? kFrom80[byte - 0x80] : static_cast<wchar_t>(byte);
  return text;
}

}  // namespace sim
