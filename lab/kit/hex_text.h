#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace lab {

/// "03 00 09 A1 ...": each byte as two capital digits, blanks between them.
[[nodiscard]] inline std::wstring HexText(std::span<const std::uint8_t> bytes) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  std::wstring text;
  for (const auto byte : bytes) {
    if (!text.empty()) text += L' ';
    text += {kDigits[byte >> 4], kDigits[byte & 0xF]};
  }
  return text;
}

}  // namespace lab
