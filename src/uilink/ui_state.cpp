#include "uilink/ui_state.h"

namespace tessaview {

ProcessWide<bool> isTessaviewAlive;
ProcessWide<bool> gUIVersionReported;
ProcessWide<std::uint64_t> gLastUpCommandTime;
ProcessWide<std::uint64_t> gLastDownCommandTime;
ProcessWide<bool> isActionMenuBlocked;

}  // namespace tessaview
