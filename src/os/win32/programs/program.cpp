// The entry point of TessaviewService.exe.
#include <windows.h>

#include "app/start_up.h"
#include "core/resource_ids.h"
#include "os/win32/process_end.h"
#include "resources/resource.h"

// The resource compiler reads its own list of the ids that the code names.
static_assert(IDS_TITLE == tessaview::kTitleText && IDS_CLASS == tessaview::kClassText);
static_assert(IDI_LARGE == tessaview::kLargeIcon && IDI_SMALL == tessaview::kSmallIcon);
static_assert(IDR_MENU == tessaview::kMainMenu && IDR_ACCELERATORS == tessaview::kAccelerators);
static_assert(IDD_ABOUT == tessaview::kAboutDialog);
static_assert(IDM_ABOUT == tessaview::kAboutCommand && IDM_EXIT == tessaview::kExitCommand);

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/, int /*show*/) {
  // The program runs with system rights: whatever is loaded from here on, COM objects among it, comes from the system
  // folder or by its full path, never from beside the program or the current directory. What it imports was loaded
  // before; its folder is one that only administrators write to.
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  os::win32::FailFastFromHereOn();
  // Threads that nobody joins may still be at work, with what a destructor would take from them.
  os::win32::EndProcess(tessaview::RunController());
}
