#pragma once

#include <cstdint>
#include <string>

#include "kit/process.h"
#include "ui/ui_message.h"

namespace lab {

/// The user-facing application's stand-in: a process of its own with one of the UI's windows on the C panel.
class StandInUi {
 public:
  /// Starts it with the main window, or with the window of another class of the UI's, and waits for that.
  bool Start(const wchar_t* windowClass = kUiClass);

  [[nodiscard]] static bool IsThere(const wchar_t* windowClass = kUiClass);

  /// The main window's process serves nothing any more, as a hung one, until it is woken. Returns once it hangs.
  static bool Hang();
  static void Wake();

  /// Whenever the main window is told this text it serves nothing for `busyMs` milliseconds, then sends the controller
  /// this command, and only then answers. Once for each text; the last command counts. False when it is not there.
  static bool AskBack(const std::wstring& whenTold, const std::wstring& command, std::uint32_t busyMs = 0);

  /// Has it send the controller a command; true when the controller took it.
  static bool Send(const std::wstring& command, const UiValues& values = {}, const wchar_t* windowClass = kUiClass);

  /// The same, sent by a second process of the UI's program: "BLSET 50".
  static bool SendByCommandLine(const std::wstring& commandAndNumber);

  void End() { process_.Kill(); }

 private:
  ChildProcess process_;
};

}  // namespace lab
