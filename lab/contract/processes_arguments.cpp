// What the door asks of Windows about sessions, users and programs, where Wine only pretends to serve it.
#include <windows.h>

#include <gtest/gtest.h>
#include <userenv.h>
#include <wtsapi32.h>

#include <cstring>
#include <cwchar>
#include <utility>

#include "contract/patched.h"
#include "os/processes.h"

// The cross-compiler's headers lack appmodel.h.
extern "C" __declspec(dllimport) LONG WINAPI GetPackageFullName(HANDLE process, UINT32* length, PWSTR name);
extern "C" __declspec(dllimport) LONG WINAPI GetPackageFamilyName(HANDLE process, UINT32* length, PWSTR name);

namespace contract {
namespace {

TEST(ProcessArguments, SessionsComeInTheSystemsOrderAndAreFreed) {
  static WTS_SESSION_INFOW listed[]{{0, nullptr, WTSListen}, {2, nullptr, WTSActive}, {65536, nullptr, WTSListen}};
  static void* freed;
  CONTRACT_PATCH(WTSEnumerateSessionsW, [](auto server, auto, auto version, auto sessions, auto count) -> BOOL {
    *sessions = listed, *count = 3;
    return server == nullptr && version == 1;
  });
  CONTRACT_PATCH(WTSFreeMemory, [](auto memory) { freed = memory; });
  const auto sessions = os::Sessions();
  ASSERT_TRUE(sessions && sessions->size() == 3 && freed == listed);
  EXPECT_TRUE((*sessions)[1].id == 2 && (*sessions)[1].state == os::kSessionActive && (*sessions)[2].id == 65536);
}

TEST(ProcessArguments, AProgramIsStartedAsTheUserAndNotMore) {
  static std::wstring asked;
  static STARTUPINFOW startup;
  static DWORD startFlags;
  static void* block;
  CONTRACT_PATCH(CreateEnvironmentBlock, [](auto environment, auto token, auto inherit) -> BOOL {
    *environment = &asked;
    return token == reinterpret_cast<HANDLE>(0x70) && inherit == TRUE;
  });
  CONTRACT_PATCH(DestroyEnvironmentBlock, [](auto environment) -> BOOL { return block = environment, TRUE; });
  CONTRACT_PATCH(CreateProcessAsUserW,
                 [](auto token, auto program, auto commandLine, auto process, auto thread, auto inherit, auto flags,
                    auto environment, auto folder, auto start, auto) -> BOOL {
                   asked = std::wstring(program) + L"|" + (commandLine != nullptr ? commandLine : L"none") + L"|" +
                           start->lpDesktop;
                   startup = *start, startFlags = flags;
                   const bool plain = !process && !thread && !inherit && !folder && environment == &asked;
                   return SetLastError(plain && token == reinterpret_cast<HANDLE>(0x70) ? 740 : 1), FALSE;
                 });
  {
    os::Token token{os::TokenHandle{0x70}};
    const auto environment = os::CreateEnvironment(token);
    ASSERT_TRUE(environment);
    for (const auto* commandLine : {L"", L"a -x"}) {
      EXPECT_EQ(os::StartAsUser(token, L"a.exe", commandLine, *environment, L"desk").error(), 740U);
      EXPECT_EQ(asked, *commandLine == 0 ? L"a.exe|none|desk" : L"a.exe|a -x|desk");
    }
    (void)token.release();  // no handle of the system's
  }
  EXPECT_EQ(block, &asked) << "the environment is given back";
  EXPECT_EQ(startFlags, DWORD{CREATE_UNICODE_ENVIRONMENT | NORMAL_PRIORITY_CLASS});
  startup.lpDesktop = nullptr;
  STARTUPINFOW plain{};
  plain.cb = sizeof plain;
  EXPECT_EQ(std::memcmp(&startup, &plain, sizeof plain), 0);
}

TEST(ProcessArguments, OnlyTheLocalSystemAccountIsTheSystem) {
  static BOOL is;
  CONTRACT_PATCH(IsWellKnownSid,
                 [](PSID sid, auto type) -> BOOL { return sid != nullptr && type == WinLocalSystemSid && is; });
  for (const BOOL answer : {TRUE, FALSE}) {
    is = answer;
    EXPECT_EQ(os::RunsAsSystem(), answer != FALSE);
  }
  CONTRACT_PATCH(OpenProcessToken, [](auto, auto, auto) -> BOOL { return FALSE; });
  EXPECT_TRUE(os::RunsAsSystem()) << "it cannot be told";
}

TEST(ProcessArguments, ForeignRightsThatCannotBeGivenBackEndTheProcess) {
  static UINT ended;
  CONTRACT_PATCH(RevertToSelf, []() -> BOOL { return SetLastError(ERROR_GEN_FAILURE), FALSE; });
  CONTRACT_PATCH(TerminateProcess, [](auto process, auto code) -> BOOL {
    return ended = process == GetCurrentProcess() ? code : 0, TRUE;
  });
  os::RevertToOwnRights();
  EXPECT_EQ(ended, 31U);
}

// ---- Packages, two of whose functions are looked up when the program runs ----

bool gPackaged;

/// Answers a package function: its text, for the process or package that it is asked about.
LONG Tell(bool right, const wchar_t* text, UINT32* length, PWSTR to) {
  if (!right) return ERROR_INVALID_PARAMETER;
  const auto size = static_cast<UINT32>(std::wcslen(text) + 1);
  if (std::exchange(*length, size) < size) return ERROR_INSUFFICIENT_BUFFER;
  std::memcpy(to, text, size * sizeof(wchar_t));
  return ERROR_SUCCESS;
}

FARPROC WINAPI FindPackageFunction(HMODULE, LPCSTR name) {
  void* found = nullptr;
  if (std::strcmp(name, "GetApplicationUserModelId") == 0)
    found = reinterpret_cast<void*>(+[](HANDLE process, UINT32* length, PWSTR to) -> LONG {
      return gPackaged ? Tell(process != nullptr, L"Family!App", length, to) : 15703;
    });
  if (std::strcmp(name, "GetPackagePathByFullName") == 0)
    found = reinterpret_cast<void*>(+[](PCWSTR package, UINT32* length, PWSTR to) -> LONG {
      return Tell(std::wcscmp(package, L"Full_1.0") == 0, L"C:\\Apps\\Full", length, to);
    });
  return reinterpret_cast<FARPROC>(found);
}

TEST(PackageArguments, APackagedProgramTellsAllOfItsPackageAndADesktopProgramNothing) {
  CONTRACT_PATCH(GetProcAddress, FindPackageFunction);
  CONTRACT_PATCH(GetPackageFullName, [](HANDLE, UINT32* length, PWSTR to) -> LONG {
    return gPackaged ? Tell(true, L"Full_1.0", length, to) : 15700;  // APPMODEL_ERROR_NO_PACKAGE
  });
  CONTRACT_PATCH(GetPackageFamilyName, [](HANDLE, UINT32* length, PWSTR to) -> LONG {
    return gPackaged ? Tell(true, L"Family", length, to) : 15700;
  });
  gPackaged = true;
  const auto packaged = os::QueryProcessPackage(GetCurrentProcessId());
  ASSERT_TRUE(packaged && packaged->appUserModelId);
  EXPECT_EQ(*packaged->appUserModelId + L" " + packaged->fullName + L" " + packaged->familyName + L" " + packaged->path,
            L"Family!App Full_1.0 Family C:\\Apps\\Full");
  gPackaged = false;
  const auto desktop = os::QueryProcessPackage(GetCurrentProcessId());
  ASSERT_TRUE(desktop && desktop->appUserModelId.error() == os::kNoApplication);
  EXPECT_EQ(desktop->fullName + desktop->familyName + desktop->path, L"");
}

}  // namespace
}  // namespace contract
