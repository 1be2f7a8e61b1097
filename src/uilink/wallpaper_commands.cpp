#include "uilink/wallpaper_commands.h"

#include <string>

#include "lifecycle/helper_tools.h"

namespace tessaview {
namespace {

std::wstring PictureOf(const UiMessage& message) {
  return message.text.substr(message.text.find(L'=') + 1);
}

}  // namespace

void SetCPanelWallpaper(const UiMessage& message) {
  SetWallpaper(L"-UI", PictureOf(message));
}

void SetBPanelWallpaper(const UiMessage& message) {
  SetWallpaper(L"-UIB", PictureOf(message));
}

}  // namespace tessaview
