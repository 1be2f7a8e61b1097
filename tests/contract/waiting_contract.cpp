// What is delivered to a thread inside a door function: each mark of os/waiting.h that both worlds can show.
#include <algorithm>

#include "tests/contract/heard.h"
#include "tests/contract/world.h"

namespace {

using contract::Heard, contract::HeardEvents, os::WindowHandle;

class WaitingContract : public contract::Contract {};

struct Call {
  std::string function;
  os::Waiting way;
  std::function<void()> make;
};

template <auto Function, class... Arguments>
Call CallOf(Arguments... arguments) {
  return {__PRETTY_FUNCTION__, os::kWaiting<Function>.way, [=] { (void)std::invoke(Function, arguments...); }};
}

/// Whether a message that another thread has sent is handled while the call is made. The other program hangs until it
/// is handled, so that a call that waits for that program is still waiting when the message comes.
bool Serves(WindowHandle own, const Call& call) {
  const auto ended = std::make_shared<os::Event>(os::NewEvent());
  world::Hang();
  os::StartThread(L"sender", [own, ended] {
    os::SendCopyDataTimeout(own, 1, os::Bytes{1}, 3000);
    world::Wake();
    os::SignalEvent(*ended);
  });
  os::Sleep(50);  // the message is sent by now
  Heard().clear();
  call.make();
  const bool serves = std::count(Heard().begin(), Heard().end(), "copyData 1 1") == 1;
  if (!serves) {
    os::QuitMessageLoop(0);
    os::RunMessageLoop(own, 0);
  }
  os::AwaitEvent(*ended);
  return serves;
}

TEST_F(WaitingContract, AMessageThatIsSentIsHandledInsideTheCallsThatServe) {
  static auto events = HeardEvents();
  events.copyData = [](auto kind, auto record) {
    contract::Hear("copyData", kind, record.size());
    world::Wake();
  };
  const auto other = world::OpenWindow();
  const auto file = world::Folder() + L"\\a.txt", copy = world::Folder() + L"\\b.txt";
  world::WriteFile(file, "text");
  world::Run([&] {
    constexpr auto kOwn = L"ContractWaiting";
    EXPECT_TRUE(os::RegisterServiceWindowClass({kOwn, 0, 0, 0}, events));
    const auto own = *os::CreateServiceWindow(kOwn, L"waits");
    const auto device = os::OpenDevice(L"\\\\.\\ZRVACPI");
    const auto signalled = os::NewEvent();
    os::SignalEvent(signalled);
    os::Semaphore free(1);
    free.Post();
    constexpr auto kActive = os::DisplayQuery::OnlyActivePaths;
    // Wine serves while it lists the displays anew, which it does for a program's first query and after each change.
    const auto panel = os::SourceGdiName(os::QueryDisplayConfiguration(kActive, kActive)->paths.front());
    const Call calls[] = {
        CallOf<&os::SendCopyData>(other, 1, os::Bytes{1}),
        CallOf<&os::SendCopyDataTimeout>(other, 1, os::Bytes{1}, 2000),
        CallOf<&os::AnswersWithin>(other, 2000),
        CallOf<&os::ShowWindow>(other, os::ShowCommand::Minimize),
        CallOf<&os::MoveWindow>(other, 20, 20, 300, 200),
        CallOf<&os::SetTopmost>(other, true),
        CallOf<&os::SetWindowExtendedStyle>(other, 0x80),
        CallOf<&os::Sleep>(50),
        CallOf<&os::AwaitEvent>(std::cref(signalled), os::kWithoutLimit),
        CallOf<&os::Semaphore::Wait>(&free),
        CallOf<&os::Control>(std::cref(*device), 0x22240C, os::Bytes(8), 8),
        CallOf<&os::OverwriteByCopy>(file, copy),
        CallOf<&os::ReadFileVersion>(os::OwnProgramPath()),
        CallOf<&os::ServiceState>(L"RpcSs"),
        CallOf<&os::HidInterfaces>(),
        CallOf<&os::QueryDisplayConfiguration>(kActive, kActive),
        CallOf<&os::ClickLeftButton>(),
        CallOf<&os::FindTopWindow>(world::kClass, nullptr),
        CallOf<&os::TopWindows>(),
        CallOf<&os::WindowTitle>(other),
        CallOf<&os::WindowRect>(other),
        CallOf<&os::GetPlacement>(other),
        CallOf<&os::ForegroundWindow>(),
        CallOf<&os::PostToWindow>(other, 0x8001, 0, 0),
        CallOf<&os::StartTimer>(own, 9, 60'000),
        CallOf<&os::DesktopMonitors>(),
        CallOf<&os::MonitorDevices>(),
        CallOf<&os::QueryPath>(file),
        CallOf<&os::ProcessImagePath>(os::WindowProcessId(other)),
        CallOf<&os::QueryPowerStatus>(),
        CallOf<&os::ChangeDisplaySettings>(panel, os::CurrentDisplaySettings(panel).value(), 0),
    };
    for (const auto& call : calls) {
      const bool serves = call.way == os::Waiting::Serving || call.way == os::Waiting::ServingInput;
      EXPECT_EQ(Serves(own, call), serves) << call.function;
    }
    os::DestroyServiceWindow(own);
  });
}

}  // namespace
