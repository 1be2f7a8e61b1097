#include "kit/process.h"

#include <winternl.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

namespace lab {
namespace {

constexpr DWORD kInjectionMs = 20000;

}  // namespace

bool LoadInto(HANDLE process, const std::wstring& dll) {
  const std::size_t size = (dll.size() + 1) * sizeof(wchar_t);
  void* const path = VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE);
  if (path == nullptr || !WriteProcessMemory(process, path, dll.c_str(), size, nullptr)) return false;
  // LoadLibraryW sits at the same address in every process.
  const auto load = reinterpret_cast<LPTHREAD_START_ROUTINE>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW")));
  const HANDLE thread = CreateRemoteThread(process, nullptr, 0, load, path, 0, nullptr);
  if (thread == nullptr) return false;
  DWORD module = 0;
  const bool loaded =
      WaitForSingleObject(thread, kInjectionMs) == WAIT_OBJECT_0 && GetExitCodeThread(thread, &module) && module != 0;
  CloseHandle(thread);
  return loaded;
}

ChildProcess ChildProcess::Start(const std::wstring& program, const std::wstring& arguments,
                                 const std::wstring& patch) {
  std::wstring commandLine = L"\"" + program + L"\" " + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  const DWORD flags = patch.empty() ? 0 : CREATE_SUSPENDED;
  if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr, &startup,
                      &started)) {
    std::fprintf(stderr, "cannot start %ls: error %lu\n", program.c_str(), GetLastError());
    return {};
  }
  ChildProcess child(started.hProcess);
  if (!patch.empty()) {
    if (!LoadInto(started.hProcess, patch)) {
      std::fprintf(stderr, "cannot load %ls into %ls\n", patch.c_str(), program.c_str());
      child.Kill();
    }
    ResumeThread(started.hThread);
  }
  CloseHandle(started.hThread);
  return child;
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : process_(std::exchange(other.process_, nullptr)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
  std::swap(process_, other.process_);
  return *this;
}

bool ChildProcess::IsRunning() const {
  return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

std::optional<std::uint32_t> ChildProcess::WaitForExit(std::chrono::milliseconds patience) const {
  if (process_ == nullptr) return {};
  if (WaitForSingleObject(process_, static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0) return {};
  DWORD code = 0;
  if (!GetExitCodeProcess(process_, &code)) return {};
  return code;
}

// GetProcessHandleCount would be the way, but Wine always answers 0.
std::uint32_t ChildProcess::HandleCount() const {
  constexpr auto kAllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);  // SystemHandleInformation
  struct Handle {
    ULONG owner;
    std::array<BYTE, 20> rest;
  };
  // A 32-bit count, then the handles, aligned to 8 bytes.
  constexpr std::size_t kFirst = 8, kRoom = 1 << 20;
  std::vector<std::byte> list(kRoom);
  ULONG size = 0, count = 0;
  if (NtQuerySystemInformation(kAllHandles, list.data(), kRoom, &size) != 0) return 0;
  std::memcpy(&count, list.data(), sizeof count);
  std::uint32_t own = 0;
  for (std::size_t i = 0; i < count; i++) {
    Handle handle{};
    std::memcpy(&handle, list.data() + kFirst + i * sizeof handle, sizeof handle);
    if (handle.owner == id()) own++;
  }
  return own;
}

void ChildProcess::Kill() {
  if (process_ == nullptr) return;
  if (IsRunning() && TerminateProcess(process_, 1)) (void)WaitForExit();
  CloseHandle(std::exchange(process_, nullptr));
}

std::wstring LabFolder() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
  const std::wstring text = path.data();
  return text.substr(0, text.rfind(L'\\') + 1);
}

}  // namespace lab
