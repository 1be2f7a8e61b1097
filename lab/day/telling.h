#pragma once

#include <string_view>

namespace lab {

/// Whether a line of one of the laptop's journals is worth a line in the story; the rest goes to the log alone.
[[nodiscard]] bool IsTelling(std::wstring_view who, std::wstring_view line);

}  // namespace lab
