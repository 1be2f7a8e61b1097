#include "uilink/ui_state.h"

namespace tessaview {

ProcessWide<bool> isTessaviewAlive;
ProcessWide<bool> gUIVersionReported;
ProcessWide<bool> isActionMenuBlocked;

}  // namespace tessaview
