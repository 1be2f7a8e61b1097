#include "uilink/ui_commands.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/trace_log.h"
#include "uilink/backlight_commands.h"
#include "uilink/display_commands.h"
#include "uilink/file_copy_command.h"
#include "uilink/move_commands.h"
#include "uilink/system_commands.h"
#include "uilink/ui_life_commands.h"
#include "uilink/ui_record.h"
#include "uilink/wallpaper_commands.h"
#include "uilink/window_commands.h"

namespace tessaview {
namespace {

enum class Match { Exact, Contains };

struct UiCommand {
  std::wstring_view text;
  Match match;
  void (*run)(const UiMessage& message);
};

/// The commands in matching order: the first that matches is carried out.
constexpr UiCommand kCommands[] = {
    {L"UP", Match::Exact, MoveTargetUp},
    {L"DOWN", Match::Exact, MoveTargetDown},
    {L"VIEWWINUP", Match::Exact, MoveViewUp},
    {L"VIEWRECALL", Match::Exact, RecallView},
    {L"VIEWCLOSE", Match::Exact, CloseView},
    {L"TOUCH", Match::Exact, TakeTouchedWindow},
    {L"BLSET", Match::Exact, SetBacklight},
    {L"BLGET", Match::Exact, TellBacklight},
    {L"HOME", Match::Exact, GoHome},
    {L"GETPROCESSNAME", Match::Exact, TellProcessName},
    {L"NAVWINUP", Match::Exact, MoveTopAppUp},
    {L"POWERSAVERON", Match::Exact, AllowPowerSaving},
    {L"POWERSAVEROFF", Match::Exact, ForbidPowerSaving},
    {L"WALLPAPER=", Match::Contains, SetCPanelWallpaper},
    {L"WALLPAPERB=", Match::Contains, SetBPanelWallpaper},
    {L"GETFREQUENCY", Match::Exact, TellRefreshRates},
    {L"SETFREQUENCY", Match::Exact, SetRefreshRate},
    {L"DIED", Match::Exact, NoteUiDied},
    {L"CLOSEQUICKGUIDE", Match::Exact, NoteGuideClosed},
    {L"ALIVE", Match::Exact, NoteUiAlive},
    {L"SETRESOLUTION", Match::Exact, SetResolution},
    {L"SHOWMIN", Match::Exact, MinimizeWindow},
    {L"SHOWRESTORE", Match::Exact, RestoreWindow},
    {L"SETTOUCHPAD", Match::Exact, TurnTouchPadOn},
    {L"SETCURSORCENTER", Match::Exact, CenterCursor},
    {L"LAUNCHMOVETOC", Match::Exact, MoveLaunchedDown},
    {L"TASKGROUPLAUNCHAPPSMAX", Match::Exact, PlaceTaskGroupWindowMaximized},
    {L"TASKGROUPLAUNCHAPPS", Match::Exact, PlaceTaskGroupWindow},
    {L"SYSAPPNAVIGATORMOVEUP", Match::Exact, MoveNavigatedUp},
    {L"SYSAPPNAVIGATORMOVEDOWN", Match::Exact, MoveNavigatedDown},
    {L"VERSION=", Match::Contains, ExchangeVersions},
    {L"APPNAVINORMAL", Match::Exact, ShowNavigatedNormal},
    {L"APPNAVISHOW", Match::Exact, ShowNavigated},
    {L"APPNAVIMAXIMIZED", Match::Exact, ShowNavigatedMaximized},
    {L"APPNAVIRESTORE", Match::Exact, RestoreNavigated},
    {L"SETTOPMOST", Match::Exact, PutOnTop},
    {L"SETNOTOPMOST", Match::Exact, PutBackFromTop},
    {L"BLOCKACTIONMENU", Match::Exact, BlockActionMenu},
};

bool Matches(const UiCommand& command, std::wstring_view text) {
  return command.match == Match::Exact ? text == command.text : text.find(command.text) != std::wstring_view::npos;
}

void LogDropped(std::uint64_t kind, std::size_t size) {
  Log(L"Record of kind %d dropped, size = %d \n", kind, size);
}

void OnUiMessage(os::BytesView record) {
  const auto message = DecodeUiMessage(record);
  if (!message) return LogDropped(static_cast<std::uint64_t>(RecordKind::UiMessage), record.size());
  Log(L"Receivedata from UI = %ls \n", message->text);
  const auto* const command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                           [&](const UiCommand& known) { return Matches(known, message->text); });
  if (command != std::end(kCommands)) command->run(*message);
}

void OnFileCopy(os::BytesView record) {
  const auto message = DecodeFileCopy(record);
  if (!message) return LogDropped(static_cast<std::uint64_t>(RecordKind::FileCopy), record.size());
  if (message->command == L"COPYWALLPAPER") CopyWallpaper(*message);
}

}  // namespace

void OnCopyData(std::uint64_t kind, os::BytesView record) {
  if (kind == static_cast<std::uint64_t>(RecordKind::UiMessage)) OnUiMessage(record);
  if (kind == static_cast<std::uint64_t>(RecordKind::FileCopy)) OnFileCopy(record);
}

}  // namespace tessaview
