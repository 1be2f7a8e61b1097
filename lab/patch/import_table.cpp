#include "patch/import_table.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

namespace lab::patch {
namespace {

void Overwrite(ULONGLONG& entry, void* replacement) {
  DWORD protection = 0;
  VirtualProtect(&entry, sizeof entry, PAGE_READWRITE, &protection);
  entry = reinterpret_cast<std::uintptr_t>(replacement);
  VirtualProtect(&entry, sizeof entry, protection, &protection);
}

}  // namespace

void Redirect(const Redirection& redirection) {
  auto* const base = reinterpret_cast<std::uint8_t*>(GetModuleHandleW(nullptr));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const auto imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;

  for (auto* dll = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports); dll->Name != 0; dll++) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + dll->OriginalFirstThunk);
    auto* entry = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + dll->FirstThunk);
    for (; name->u1.AddressOfData != 0; name++, entry++) {
      if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) continue;
      const auto* byName = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(byName->Name), redirection.function) == 0) {
        Overwrite(entry->u1.Function, redirection.replacement);
      }
    }
  }
}

}  // namespace lab::patch
