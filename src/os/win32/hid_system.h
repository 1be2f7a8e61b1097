#pragma once

#include <windows.h>

// The HID headers of the toolchain do not say themselves that their functions are C.
extern "C" {
#include <hidsdi.h>
}
