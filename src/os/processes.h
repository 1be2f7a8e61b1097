#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"
#include "os/waiting.h"

namespace os {

// ---- Sessions and user tokens ----

struct Session {
  std::uint32_t id = 0;
  std::uint32_t state = 0;  // WTS_CONNECTSTATE_CLASS
};
inline constexpr std::uint32_t kSessionActive = 0;  // WTSActive

/// The sessions of this machine in the system's order (WTSEnumerateSessionsW, version 1). Any thread.
[[nodiscard]] Result<std::vector<Session>> Sessions();
template <>
inline constexpr WaitingMark kWaiting<&Sessions>{Waiting::Deaf, false};

/// The session that this process belongs to (ProcessIdToSessionId, GetCurrentProcessId). Any thread; microseconds.
[[nodiscard]] Result<std::uint32_t> OwnSession();

/// The session at the machine's own screen and keyboard; none while one is being attached to them or detached
/// (WTSGetActiveConsoleSessionId). Any thread; microseconds.
[[nodiscard]] std::optional<std::uint32_t> ConsoleSession();

/// An access token (HANDLE).
enum class TokenHandle : std::uint64_t { None = 0 };
void CloseToken(TokenHandle token) noexcept;
using Token = Owned<TokenHandle, CloseToken>;

/// The token of the user signed in to a session (WTSQueryUserToken). Needs system rights. Any thread.
[[nodiscard]] Result<Token> SessionUserToken(std::uint32_t sessionId);
template <>
inline constexpr WaitingMark kWaiting<&SessionUserToken>{Waiting::Deaf, false};

/// This process's own token, opened to adjust its privileges (OpenProcessToken, TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY).
[[nodiscard]] Result<Token> OwnToken();

/// Enables a privilege in a token (LookupPrivilegeValueW, AdjustTokenPrivileges); fails also when the token does not
/// hold it (ERROR_NOT_ALL_ASSIGNED).
Status EnablePrivilege(const Token& token, const wchar_t* privilege);

/// True when this process runs as the system account (own token's user is the well-known LocalSystem SID), and also
/// when that cannot be told.
[[nodiscard]] bool RunsAsSystem();

/// Lets the calling thread act with a user's rights (ImpersonateLoggedOnUser).
Status Impersonate(const Token& token);

/// Gives the calling thread its own rights back (RevertToSelf). Ends the process when the system refuses.
void RevertToOwnRights() noexcept;

// ---- Starting programs as the user ----

/// An environment block (CreateEnvironmentBlock, DestroyEnvironmentBlock).
enum class EnvironmentHandle : std::uint64_t { None = 0 };
void DestroyEnvironment(EnvironmentHandle environment) noexcept;
using Environment = Owned<EnvironmentHandle, DestroyEnvironment>;

/// A user's environment, on top of this process's own (CreateEnvironmentBlock, inherit TRUE). Any thread.
[[nodiscard]] Result<Environment> CreateEnvironment(const Token& token);

/// A process (HANDLE).
enum class ProcessHandle : std::uint64_t { None = 0 };
void CloseProcess(ProcessHandle process) noexcept;
using Process = Owned<ProcessHandle, CloseProcess>;

/// Starts a program as a user (CreateProcessAsUserW): no security attributes, no handle inheritance,
/// CREATE_UNICODE_ENVIRONMENT | NORMAL_PRIORITY_CLASS, no current directory, STARTUPINFOW zero but for `cb` and the
/// desktop. An empty `commandLine` passes none. The thread handle is closed at once. Any thread; milliseconds.
[[nodiscard]] Result<Process> StartAsUser(const Token& token, const std::wstring& program,
                                          const std::wstring& commandLine, const Environment& environment,
                                          const wchar_t* desktop);
template <>
inline constexpr WaitingMark kWaiting<&StartAsUser>{Waiting::Deaf, false};

enum class WaitOutcome { Ended, TimedOut, Failed };
struct ProcessWait {
  WaitOutcome outcome;
  std::uint32_t error = 0;  // of a failed wait
};

/// Waits until a process ends, at most `timeoutMs` milliseconds (WaitForSingleObject).
[[nodiscard]] ProcessWait WaitForProcess(const Process& process, std::uint32_t timeoutMs);
template <>
inline constexpr WaitingMark kWaiting<&WaitForProcess>{Waiting::Deaf};

/// The exit code of an ended process (GetExitCodeProcess).
[[nodiscard]] std::optional<std::uint32_t> ProcessExitCode(const Process& process);

/// The full path of a process's program, cut behind 259 characters (OpenProcess with PROCESS_QUERY_LIMITED_INFORMATION,
/// QueryFullProcessImageNameW). Empty when the process is gone or may not be asked. Any thread.
[[nodiscard]] std::wstring ProcessImagePath(std::uint32_t processId);

// ---- Programs of other processes ----

/// Opens a process to wait until it is idle (OpenProcess, PROCESS_QUERY_INFORMATION | SYNCHRONIZE, not inheritable; the
/// wait needs both). Any thread.
[[nodiscard]] Result<Process> OpenToAwaitIdle(std::uint32_t processId);

/// Waits until a program has worked off what it began with and waits for input, at most `timeoutMs` milliseconds
/// (WaitForInputIdle). Returns at once without a process and for a program without windows. Any thread.
void AwaitInputIdle(const Process& process, std::uint32_t timeoutMs);
template <>
inline constexpr WaitingMark kWaiting<&AwaitInputIdle>{Waiting::Serving, false};

/// Opens a process to wait for its end and to end it (OpenProcess, PROCESS_TERMINATE | SYNCHRONIZE). Any thread.
[[nodiscard]] Result<Process> OpenToEnd(std::uint32_t processId);

/// Ends a process where it stands (TerminateProcess). Any thread.
Status TerminateProcess(const Process& process, std::uint32_t exitCode);
template <>
inline constexpr WaitingMark kWaiting<&TerminateProcess>{Waiting::Deaf};

/// The package that a process's program came in; all empty for a desktop program.
struct ProcessPackage {
  Result<std::wstring> appUserModelId = Error{};  // GetApplicationUserModelId
  std::wstring fullName;                          // GetPackageFullName
  std::wstring familyName;                        // GetPackageFamilyName
  std::wstring path;                              // GetPackagePathByFullName
};
inline constexpr std::uint32_t kNoApplication = 15703;  // APPMODEL_ERROR_NO_APPLICATION: a desktop program

/// What package a process belongs to (OpenProcess with PROCESS_QUERY_LIMITED_INFORMATION, then the functions above).
/// Fails when the process is gone or may not be asked. Any thread.
[[nodiscard]] Result<ProcessPackage> QueryProcessPackage(std::uint32_t processId);

/// The product names in a program's version resource, one for each translation that has one, in the order of its table,
/// each at most 259 characters (GetFileVersionInfoSizeW, GetFileVersionInfoW, VerQueryValueW of
/// "\VarFileInfo\Translation" and "\StringFileInfo\%04x%04x\ProductName"). Any thread; a file read.
[[nodiscard]] std::vector<std::wstring> ProductNames(const std::wstring& path);

/// The file names of all running programs (CreateToolhelp32Snapshot with TH32CS_SNAPPROCESS, Process32FirstW,
/// Process32NextW). Any thread; milliseconds.
[[nodiscard]] Result<std::vector<std::wstring>> RunningPrograms();

// ---- Packaged applications ----

/// Joins the calling thread to COM, apartment-threaded (CoInitializeEx, COINIT_APARTMENTTHREADED).
Status JoinCom();

/// The application activation manager (IApplicationActivationManager).
enum class ActivationHandle : std::uint64_t { None = 0 };
void ReleaseActivation(ActivationHandle manager) noexcept;
using ActivationManager = Owned<ActivationHandle, ReleaseActivation>;

/// Creates the activation manager (CoCreateInstance, CLSCTX_LOCAL_SERVER). After JoinCom, on the same thread.
[[nodiscard]] Result<ActivationManager> CreateActivationManager();
template <>
inline constexpr WaitingMark kWaiting<&CreateActivationManager>{Waiting::ServingInput};

/// Activates a packaged application by its application user model id (ActivateApplication, AO_NONE); an empty
/// `argument` passes none. Blocks until the application is started, seconds at worst.
Status ActivateApplication(const ActivationManager& manager, const std::wstring& appUserModelId,
                           const std::wstring& argument);
template <>
inline constexpr WaitingMark kWaiting<&ActivateApplication>{Waiting::ServingInput};

/// Opens nothing through the shell (ShellExecuteW without a file, SW_SHOW); a result above 32 is a success.
std::int64_t ShellOpenNothing();
template <>
inline constexpr WaitingMark kWaiting<&ShellOpenNothing>{Waiting::Deaf, false};

}  // namespace os
