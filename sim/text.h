#pragma once

#include <cwctype>
#include <string>
#include <string_view>

namespace sim {

/// A text in small letters, for names that the system compares without regard to case.
[[nodiscard]] inline std::wstring Lower(std::wstring_view text) {
  std::wstring lower(text);
  for (auto& character : lower) character = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
  return lower;
}

/// The last part of a path.
[[nodiscard]] inline std::wstring FileName(std::wstring_view path) {
  return std::wstring(path.substr(path.find_last_of(L'\\') + 1));
}

}  // namespace sim
