#pragma once

#include "core/process_wide.h"
#include "os/first_sign_in.h"
#include "os/types.h"

namespace tessaview {

/// The hidden main window: the target of every notification, timer and command.
extern ProcessWide<os::WindowHandle> gServiceWindow;

/// Windows' out-of-box setup is finished; until then the UI is never launched.
extern ProcessWide<bool> isOOBEComplete;

/// The wait for the end of setup, ended at shutdown.
extern ProcessWide<os::SetupWait> gOOBEWaitHandle;

/// The UI's main window as start-up found it after the launch phase; None when there was none.
extern ProcessWide<os::WindowHandle> gUIWindow;

/// The notification of the current lid state, or display state, that the registration itself delivers is still to come.
extern ProcessWide<bool> gFirstLidOpenPending;
extern ProcessWide<bool> gFirstDisplayOnPending;

}  // namespace tessaview
