#include "windows/window_classes.h"

#include <algorithm>
#include <span>

#include "os/desktop.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

constexpr std::wstring_view kUiClasses[] = {
    L"TessaviewExpand",     L"Tessaview",
    L"Tessaview_ViewClass", L"Tessaview_AllAppClass",
    L"Tessaview_PinClass",  L"Tessaview_EmbeddedWindowUI",
    L"Tessaview_Expand",    L"Tessaview_FloatingBtnUI",
    L"Tessaview_Setting",
};
constexpr std::wstring_view kUiClassPart = L"NorvTessaview";

constexpr std::wstring_view kDesktopClasses[] = {L"WorkerW", L"Progman"};

constexpr std::wstring_view kShellClasses[] = {
    kTaskbarClass,           L"Shell_SecondaryTrayWnd",          kCoreWindowClass,
    L"TaskListThumbnailWnd", L"Shell_InputSwitchTopLevelWindow", L"NotifyIconOverflowWindow",
};

bool IsOneOf(std::span<const std::wstring_view> names, std::wstring_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

bool IsUiWindow(os::WindowHandle window, std::wstring_view className) {
  return window == os::FindTopWindow(kUiMainClass) || IsOneOf(kUiClasses, className) ||
         className.find(kUiClassPart) != std::wstring_view::npos;
}

bool IsShellWindow(os::WindowHandle window, std::wstring_view className) {
  return IsOneOf(kDesktopClasses, className) || IsOneOf(kShellClasses, className) || window == os::DesktopWindow() ||
         window == os::ShellWindow();
}

bool IsEdgeClass(std::wstring_view className) {
  return className == L"EdgeUiInputTopWndClass";
}

}  // namespace tessaview
