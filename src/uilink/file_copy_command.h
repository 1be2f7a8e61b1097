#pragma once

#include "uilink/ui_record.h"

namespace tessaview {

/// "COPYWALLPAPER": copies the input file over the output file with the rights of the active user, so that nobody can
/// have the system account read or write a file for him. Refused, with a log line, when no user can be found.
/// Blocks for the length of the copy.
void CopyWallpaper(const FileCopyMessage& message);

}  // namespace tessaview
