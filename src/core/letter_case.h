#pragma once

#include <string>

namespace tessaview {

/// A text with every character in upper case, each taken by itself.
[[nodiscard]] std::wstring UpperCased(std::wstring text);

}  // namespace tessaview
