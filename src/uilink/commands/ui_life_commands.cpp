// The UI's commands about its own life and version.
#include <string>

#include "core/factory_config.h"
#include "core/trace_log.h"
#include "lifecycle/first_sign_in.h"
#include "lifecycle/ui_activation.h"
#include "os/files.h"
#include "os/registry.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/channel/ui_session.h"
#include "uilink/commands/command.h"
#include "windows/mover/drag_watch.h"

namespace tessaview {
namespace {

std::wstring OwnVersion() {
  const auto version = os::ReadFileVersion(os::OwnProgramPath()).value_or(os::FileVersion{});
  std::wstring text = std::to_wstring(version.major);
  for (const auto number : {version.minor, version.build, version.revision}) text += L"." + std::to_wstring(number);
  return text;
}

void NoteUiDied(const UiMessage& /*message*/) {
  SetTessaviewAlive(false);
}

void NoteGuideClosed(const UiMessage& /*message*/) {
  SetTessaviewAlive(true);
}

void NoteUiAlive(const UiMessage& /*message*/) {
  SetTessaviewAlive(true);
  // A value for the factory's own tools; nothing here reads it.
  if (isOOBEComplete()) (void)os::WriteRegistryText(kFactoryConfigKey, L"OobeCompleted", L"1");
  StartUiLaunchThread();
}

void ExchangeVersions(const UiMessage& message) {
  Log(L"get UWP version = %ls \n", message.text);
  NoteUIVersionReported();
  TellUi(texts::kVersion, {.text = OwnVersion()});
}

void BlockActionMenu(const UiMessage& /*message*/) {
  SetActionMenuBlocked();
  DisarmMover();
}

constexpr UiCommand kUiLifeCommands[] = {
    {L"ALIVE", Match::Exact, NoteUiAlive, nullptr, "the UI is ready; activates the packaged UI"},
    {L"DIED", Match::Exact, NoteUiDied, nullptr, "the UI is not ready any more"},
    {L"CLOSEQUICKGUIDE", Match::Exact, NoteGuideClosed, nullptr, "the setup guide is over, the UI is ready"},
    {L"VERSION=", Match::Contains, ExchangeVersions, nullptr,
     "the UI's version behind the sign; notes that it was told; answers VERSION= with the controller's"},
    {L"BLOCKACTIONMENU", Match::Exact, BlockActionMenu, L"[BLOCKACTIONMENU] block action menu function",
     "switches the window mover and NAVIGATORSHOW off for the rest of the controller's life; takes a shown overlay "
     "down"},
};

}  // namespace

UiCommandRows UiLifeCommands() {
  return kUiLifeCommands;
}

}  // namespace tessaview
