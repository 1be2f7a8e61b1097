#include "touch/touch_pad_state.h"

namespace tessaview {

ProcessWide<TouchPad> gTouchPad;
ProcessWide<bool> gTouchPadFound;

}  // namespace tessaview
