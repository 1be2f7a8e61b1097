#include "uilink/ui_life_commands.h"

#include <string>

#include "core/factory_config.h"
#include "core/service_state.h"
#include "core/trace_log.h"
#include "lifecycle/ui_activation.h"
#include "os/files.h"
#include "os/registry.h"
#include "uilink/ui_channel.h"
#include "uilink/ui_state.h"
#include "windows/drag_steps.h"

namespace tessaview {
namespace {

std::wstring OwnVersion() {
  const auto version = os::ReadFileVersion(os::OwnProgramPath()).value_or(os::FileVersion{});
  std::wstring text = std::to_wstring(version.major);
  for (const auto number : {version.minor, version.build, version.revision}) text += L"." + std::to_wstring(number);
  return text;
}

}  // namespace

void NoteUiDied(const UiMessage& /*message*/) {
  isTessaviewAlive.set(false);
}

void NoteGuideClosed(const UiMessage& /*message*/) {
  isTessaviewAlive.set(true);
}

void NoteUiAlive(const UiMessage& /*message*/) {
  isTessaviewAlive.set(true);
  if (isOOBEComplete.get()) (void)os::WriteRegistryText(kFactoryConfigKey, L"OobeCompleted", L"1");
  StartUiLaunchThread();
}

void ExchangeVersions(const UiMessage& message) {
  Log(L"get UWP version = %ls \n", message.text);
  gUIVersionReported.set(true);
  SendUiTextTimeout({.text = L"VERSION=" + OwnVersion()});
}

void BlockActionMenu(const UiMessage& /*message*/) {
  Log(L"[BLOCKACTIONMENU] block action menu function");
  isActionMenuBlocked.set(true);
  DisarmMover();
}

}  // namespace tessaview
