#include "windows/window_closing.h"

#include <algorithm>
#include <memory>
#include <string>

#include "core/service_window.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "core/user_rights.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/processes.h"
#include "os/window_control.h"
#include "uilink/channel/ui_channel.h"
#include "windows/patient_calls.h"
#include "windows/window_classes.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kAskMs = 20, kGraceMs = 5000;
constexpr std::uint32_t kExitCode = 1;

/// A window that was asked to close, and the process it belongs to. While that is held open, no other process gets its
/// id.
struct Closing {
  os::WindowHandle window;
  std::wstring className;
  std::uint32_t processId;
  os::Process process;
  bool isHidden;
};

/// The window whose program it is about: for a frame that of the application inside it, none while that is suspended.
os::WindowHandle ContentOf(os::WindowHandle window, const std::wstring& className) {
  return className == kFrameClass ? os::FindChildWindow(window, kCoreWindowClass) : window;
}

/// The process to end if need be.
std::uint32_t ProcessOf(os::WindowHandle window, const std::wstring& className) {
  return os::WindowProcessId(ContentOf(window, className));
}

bool MayBeEnded(std::uint32_t processId) {
  for (const auto protectedWindow : {os::ShellWindow(), os::FindTopWindow(kUiMainClass), gServiceWindow()}) {
    if (os::WindowProcessId(protectedWindow) == processId) return false;
  }
  return true;
}

/// With the user's rights: nobody can have the controller end a program for him that he may not end.
os::Result<os::Process> OpenAsUser(std::uint32_t processId) {
  const ActingAsUser user;
  return user.IsRefused() ? os::Error{} : os::OpenToEnd(processId);
}

/// Handles of windows are used again: it is the same one if it looks the same and belongs to the same process.
bool IsStillThere(const Closing& closing) {
  return os::IsWindow(closing.window) && os::WindowClassName(closing.window) == closing.className &&
         ProcessOf(closing.window, closing.className) == closing.processId;
}

/// Somebody wants it after all.
bool IsShownAgain(const Closing& closing) {
  return closing.isHidden && os::IsWindowVisible(closing.window);
}

/// The user is at work in another of the program's windows, or is asked something there.
bool ShowsAnother(const Closing& closing) {
  const auto windows = os::TopWindows();
  return std::any_of(windows.begin(), windows.end(), [&](os::WindowHandle window) {
    return window != closing.window && os::IsWindowVisible(window) &&
           ProcessOf(window, os::WindowClassName(window)) == closing.processId;
  });
}

/// A program that answers has its reasons: it asks its user whether to save, or goes on without a window.
void EndIfItHangs(const Closing& closing) {
  if (os::WaitForProcess(closing.process, kGraceMs).outcome != os::WaitOutcome::TimedOut) return;
  if (!IsStillThere(closing) || IsShownAgain(closing) || ShowsAnother(closing)) return;
  if (!Hangs(ContentOf(closing.window, closing.className)) || !IsStillThere(closing)) return;
  const auto ended = os::TerminateProcess(closing.process, kExitCode);
  Log(L"[VIEWCLOSE] The window did not close, end its process, error = %d \n", ended.error());
}

}  // namespace

void CloseWindowForGood(os::WindowHandle window) {
  if (!os::IsWindow(window)) return;
  const auto className = os::WindowClassName(window);
  const auto processId = ProcessOf(window, className);
  const bool hidItself = !os::IsWindowVisible(window);
  auto process = !hidItself && MayBeEnded(processId) ? OpenAsUser(processId) : os::Error{};
  os::AskToShow(window, os::ShowCommand::Hide);
  os::AskToClose(window, kAskMs);
  if (!process) return;
  const bool isHidden = !os::IsWindowVisible(window);
  const auto closing = std::make_shared<Closing>(Closing{window, className, processId, std::move(*process), isHidden});
  StartThread(L"window closing", [closing] { EndIfItHangs(*closing); });
}

}  // namespace tessaview
