#pragma once

#include "uilink/ui_record.h"

namespace tessaview {

/// "DIED": the UI is not ready any more.
void NoteUiDied(const UiMessage& message);

/// "CLOSEQUICKGUIDE": the setup guide is over, the UI is ready.
void NoteGuideClosed(const UiMessage& message);

/// "ALIVE": the UI is ready. Once Windows' setup is over the factory configuration gets "OobeCompleted". The packaged
/// UI is activated in every case.
void NoteUiAlive(const UiMessage& message);

/// "VERSION=…": notes that the UI told its version, and answers with the controller's.
void ExchangeVersions(const UiMessage& message);

/// "BLOCKACTIONMENU": the window mover is off for the rest of the process's life.
void BlockActionMenu(const UiMessage& message);

}  // namespace tessaview
