#include "core/service_state.h"

namespace tessaview {

ProcessWide<os::WindowHandle> gServiceWindow;
ProcessWide<bool> isOOBEComplete;
ProcessWide<os::SetupWait> gOOBEWaitHandle;
ProcessWide<os::WindowHandle> gUIWindow;
ProcessWide<bool> gFirstLidOpenPending;
ProcessWide<bool> gFirstDisplayOnPending;

}  // namespace tessaview
