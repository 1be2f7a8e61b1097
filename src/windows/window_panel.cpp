#include "windows/window_panel.h"

#include "display/panel_search.h"
#include "os/desktop.h"

namespace tessaview {
namespace {

bool IsOn(os::MonitorHandle panel, os::WindowHandle window) {
  return panel != os::MonitorHandle::None && os::MonitorOf(window) == panel;
}

}  // namespace

bool IsOnBPanel(os::WindowHandle window) {
  return IsOn(bPanelMonitor(), window);
}

bool IsOnCPanel(os::WindowHandle window) {
  return IsOn(cPanelMonitor(), window);
}

}  // namespace tessaview
