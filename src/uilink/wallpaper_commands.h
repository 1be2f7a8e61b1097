#pragma once

#include "uilink/ui_record.h"

namespace tessaview {

/// "WALLPAPER=" and "WALLPAPERB=", the picture's path behind the first "=": has the wallpaper tool show it on the C
/// panel, and on the B panel.
void SetCPanelWallpaper(const UiMessage& message);
void SetBPanelWallpaper(const UiMessage& message);

}  // namespace tessaview
