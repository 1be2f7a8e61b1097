#pragma once

#include <windows.h>

#include <cstdint>

namespace lab {

enum PackageState : std::uint32_t { kPackageMissing = 0, kPackageInstalled = 1 };

/// What the laptop is like where Wine cannot be told: shared by the test, which sets it, and the import patch,
/// which answers from it. Words, read and written whole.
struct LaptopState {
  std::uint32_t topology;       // DISPLAYCONFIG_TOPOLOGY_*: 1 internal, 2 clone, 4 extend, 8 external
  std::uint32_t onMains;        // ACLineStatus: 0 battery, 1 mains
  std::uint32_t batterySaver;   // SystemStatusFlag
  std::uint32_t packageCheck;   // whether the UI's package is installed: PackageState, or the error that asking meets
  std::uint32_t setupOver;      // whether Windows' first setup is over
  std::uint32_t secureDesktop;  // whether it has the screen, in place of the user's
};

/// Both panels extended, on mains, the UI's package installed, and a user at his desktop.
inline void ResetLaptopState(LaptopState& state) {
  constexpr std::uint32_t kExtended = 4;
  state = {.topology = kExtended,
           .onMains = 1,
           .batterySaver = 0,
           .packageCheck = kPackageInstalled,
           .setupOver = 1,
           .secureDesktop = 0};
}

/// The laptop's state, in memory that all programs of the lab share (CreateFileMappingW). The first to ask makes
/// it. Lives as long as this process.
inline LaptopState* SharedLaptopState() {
  static LaptopState* const state = []() -> LaptopState* {
    const HANDLE memory =
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(LaptopState), L"TessaviewLabState");
    const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
    if (memory == nullptr) return nullptr;
    auto* view = static_cast<LaptopState*>(MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(LaptopState)));
    if (view != nullptr && isNew) ResetLaptopState(*view);
    return view;
  }();
  return state;
}

}  // namespace lab
