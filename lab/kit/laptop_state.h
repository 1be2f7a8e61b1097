#pragma once

#include <windows.h>

#include <cstdint>

namespace lab {

/// What the laptop is like where Wine cannot be told: shared by the story or test, which sets it, the import patch and
/// the package check's stand-in, which answer from it. Words, read and written whole.
struct LaptopState {
  std::uint32_t topology;      // DISPLAYCONFIG_TOPOLOGY_*: 1 internal, 2 clone, 4 extend, 8 external
  std::uint32_t onMains;       // ACLineStatus: 0 battery, 1 mains
  std::uint32_t batterySaver;  // SystemStatusFlag
  std::uint32_t packageCheck;  // exit code of the package check tool: 1 installed, 0 not
};

/// The laptop's state, in memory that all programs of the lab share (CreateFileMappingW). The first to ask makes it,
/// with both panels extended, on mains, and the UI's package installed. Lives as long as this process.
inline LaptopState* SharedLaptopState() {
  static LaptopState* const state = []() -> LaptopState* {
    const HANDLE memory =
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(LaptopState), L"TessaviewLabState");
    const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
    if (memory == nullptr) return nullptr;
    auto* view = static_cast<LaptopState*>(MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(LaptopState)));
    constexpr std::uint32_t kExtended = 4;
    if (view != nullptr && isNew) *view = {.topology = kExtended, .onMains = 1, .batterySaver = 0, .packageCheck = 1};
    return view;
  }();
  return state;
}

}  // namespace lab
