#pragma once

#include <windows.h>

#include "os/service_window.h"

namespace os::win32 {

/// Names who takes the messages of the service window; before the window exists, and for as long as it does.
void DeliverTo(const ServiceWindowEvents& events);

/// The procedure of the service window: decodes a message into one call of an event.
LRESULT CALLBACK ServiceWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

}  // namespace os::win32
