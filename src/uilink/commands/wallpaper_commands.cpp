// The UI's commands that set a panel's wallpaper.
#include <string>

#include "lifecycle/helper_tools.h"
#include "uilink/commands/command.h"

namespace tessaview {
namespace {

std::wstring PictureOf(const UiMessage& message) {
  return message.text.substr(message.text.find(L'=') + 1);
}

void SetCPanelWallpaper(const UiMessage& message) {
  SetWallpaper(L"-UI", PictureOf(message));
}

void SetBPanelWallpaper(const UiMessage& message) {
  SetWallpaper(L"-UIB", PictureOf(message));
}

constexpr UiCommand kWallpaperCommands[] = {
    {L"WALLPAPER=", Match::Contains, SetCPanelWallpaper, nullptr,
     "the picture's path behind the sign; the wallpaper tool shows it on the C panel"},
    {L"WALLPAPERB=", Match::Contains, SetBPanelWallpaper, nullptr,
     "the picture's path behind the sign; the wallpaper tool shows it on the B panel"},
};

}  // namespace

UiCommandRows WallpaperCommands() {
  return kWallpaperCommands;
}

}  // namespace tessaview
