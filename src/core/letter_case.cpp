#include "core/letter_case.h"

#include <cwctype>

namespace tessaview {

std::wstring UpperCased(std::wstring text) {
  for (auto& character : text) character = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
  return text;
}

}  // namespace tessaview
