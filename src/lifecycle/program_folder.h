#pragma once

#include <string>

namespace tessaview {

/// The full path of a program that lies beside this one.
[[nodiscard]] std::wstring PathBesideProgram(const wchar_t* fileName);

}  // namespace tessaview
