#include "uilink/commands/ui_commands.h"

#include <algorithm>
#include <string_view>

#include "core/service_window.h"
#include "core/trace_log.h"
#include "os/desktop.h"

namespace tessaview {
namespace {

template <class Message>
bool Matches(const Command<Message>& command, std::wstring_view text) {
  return command.match == Match::Exact ? text == command.text : text.find(command.text) != std::wstring_view::npos;
}

template <class Message>
void Run(const Command<Message>& command, const Message& message) {
  if (command.log != nullptr) Log(L"%ls", command.log);
  command.run(message);
}

void LogDropped(RecordKind kind, std::size_t size) {
  Log(L"Record of kind %d dropped, size = %d \n", static_cast<std::uint64_t>(kind), size);
}

/// Whether a window is one of this process, by whatever handle. The field may also hold a number that is no window's.
bool IsOwnWindow(os::WindowHandle window) {
  const auto process = os::WindowProcessId(window);
  return process != 0 && process == os::WindowProcessId(gServiceWindow());
}

/// Nobody can have the controller show, move or close its own windows: in a record they count as none.
void LeaveOutOwnWindow(UiMessage& message) {
  if (!IsOwnWindow(message.Window())) return;
  Log(L"The window is the controller's own and counts as none, HWND = %x \n", message.Window());
  message.handle = 0;
}

void OnUiMessage(os::BytesView record) {
  auto message = DecodeUiMessage(record);
  if (!message) return LogDropped(RecordKind::UiMessage, record.size());
  Log(L"Receivedata from UI = %ls \n", message->text);
  LeaveOutOwnWindow(*message);
  const auto& commands = UiCommands();
  const auto command = std::find_if(commands.begin(), commands.end(),
                                    [&](const UiCommand& known) { return Matches(known, message->text); });
  if (command != commands.end()) Run(*command, *message);
}

void OnFileCopy(os::BytesView record) {
  const auto message = DecodeFileCopy(record);
  if (!message) return LogDropped(RecordKind::FileCopy, record.size());
  if (Matches(WallpaperCopyCommand(), message->command)) Run(WallpaperCopyCommand(), *message);
}

}  // namespace

// Order matters only among the rows that match anywhere in a text. The wallpapers' come before the version's: the path
// of a picture may contain "VERSION=".
const std::vector<UiCommand>& UiCommands() {
  static const std::vector<UiCommand> commands = [] {
    std::vector<UiCommand> all;
    for (const auto& rows : {MoveCommands(), WindowCommands(), BacklightCommands(), DisplayCommands(),
                             WallpaperCommands(), UiLifeCommands(), SystemCommands()}) {
      all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
  }();
  return commands;
}

void OnCopyData(std::uint64_t kind, os::BytesView record) {
  if (kind == static_cast<std::uint64_t>(RecordKind::UiMessage)) OnUiMessage(record);
  if (kind == static_cast<std::uint64_t>(RecordKind::FileCopy)) OnFileCopy(record);
}

}  // namespace tessaview
