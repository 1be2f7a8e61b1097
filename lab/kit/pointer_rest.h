#pragma once

namespace lab {

// Wine's pointer and the X server's are two. Wine lets the X server's follow what SendInput says, unless a program
// watches the mouse; and whenever the X server's comes to be over another window, because a window opens, moves or
// closes there, Wine's jumps to it. Here the X server's pointer rests, so that SendInput alone says where Wine's is,
// whether the controller watches the mouse or not.

/// Sees to it that the X server's pointer does not follow any more, as long as this process lives.
void LetPointerRest();

/// Takes the X server's pointer to where no window comes or goes beneath it, and Wine's with it. Needed again when a
/// program has moved it by SetCursorPos. Programs that watch the mouse see nothing of it.
void PutPointerToRest();

}  // namespace lab
