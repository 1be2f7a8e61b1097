#include "os/threads.h"

#include <memory>
#include <string>
#include <utility>

#include "os/win32/win32_support.h"

namespace os {
namespace {

struct ThreadStart {
  std::wstring name;
  std::function<void()> body;
};

/// Windows 10 and later; without it the thread goes unnamed.
void NameThisThread(const std::wstring& name) {
  const auto describe =
      win32::FindSystemFunction<HRESULT WINAPI(HANDLE, PCWSTR)>(L"kernel32.dll", "SetThreadDescription");
  if (describe != nullptr) describe(GetCurrentThread(), name.c_str());
}

DWORD WINAPI ThreadMain(void* parameter) noexcept {
  const std::unique_ptr<ThreadStart> start(static_cast<ThreadStart*>(parameter));
  NameThisThread(start->name);
  start->body();
  return 0;
}

}  // namespace

bool StartThread(const wchar_t* name, std::function<void()> body) {
  auto start = std::make_unique<ThreadStart>(ThreadStart{name, std::move(body)});
  const win32::LocalHandle thread(CreateThread(nullptr, 0, ThreadMain, start.get(), 0, nullptr));
  if (!thread) return false;
  (void)start.release();  // the thread's from here on
  return true;
}

void ExpectMainThread() {}  // proved on the simulated laptop

struct Lock::State {
  CRITICAL_SECTION section;
};

Lock::Lock() : state_(new State) {
  InitializeCriticalSection(&state_->section);
}

Lock::~Lock() {
  DeleteCriticalSection(&state_->section);
  delete state_;
}

void Lock::lock() {
  EnterCriticalSection(&state_->section);
}

void Lock::unlock() {
  LeaveCriticalSection(&state_->section);
}

struct Semaphore::State {
  win32::LocalHandle handle;
};

Semaphore::Semaphore(std::uint32_t most)
    : state_(new State{win32::LocalHandle(CreateSemaphoreW(nullptr, 0, static_cast<LONG>(most), nullptr))}) {}

Semaphore::~Semaphore() {
  delete state_;
}

void Semaphore::Post() {
  ReleaseSemaphore(state_->handle.get(), 1, nullptr);
}

bool Semaphore::Wait() {
  return WaitForSingleObject(state_->handle.get(), INFINITE) == WAIT_OBJECT_0;
}

}  // namespace os
