#include <algorithm>
#include <mutex>

#include "tests/contract/world.h"

namespace {

using ProcessContract = contract::Contract;

constexpr std::uint32_t kLong = 20'000;   // ms
constexpr std::uint64_t kClockStep = 16;  // ms: how coarse Windows counts

TEST_F(ProcessContract, AMutexExistsAsLongAsSomebodyHoldsIt) {
  constexpr auto kName = L"Mutex_Contract";
  {
    const auto first = os::CreateNamedMutex(kName), second = os::CreateNamedMutex(kName);
    EXPECT_TRUE(first.mutex && !first.alreadyExisted && second.mutex && second.alreadyExisted);
    EXPECT_FALSE(os::CreateNamedMutex(L"MUTEX_contract").alreadyExisted) << "names have a case";
  }
  EXPECT_FALSE(os::CreateNamedMutex(kName).alreadyExisted);
  world::MakeEvent(kName);
  const auto refused = os::CreateNamedMutex(kName);
  EXPECT_TRUE(!refused.mutex && !refused.alreadyExisted && refused.error == 6) << "ERROR_INVALID_HANDLE";
}

TEST_F(ProcessContract, AnEventIsOpenedNotMade) {
  constexpr auto kName = L"Global\\NORV Contract Event";
  EXPECT_FALSE(os::OpenNamedEvent(kName));
  world::MakeEvent(kName);
  const auto event = os::OpenNamedEvent(kName);
  ASSERT_TRUE(event);
  os::SignalEvent(event);
  EXPECT_TRUE(world::IsSignalled(kName));
  os::ResetEvent(event);
  EXPECT_FALSE(world::IsSignalled(kName));
}

TEST_F(ProcessContract, AnEventWithoutANameLetsEverybodyPassOnceItIsSignalled) {
  EXPECT_FALSE(os::AwaitEvent(os::Event()));
  world::Run([] {
    const auto event = os::NewEvent();
    ASSERT_TRUE(event);
    EXPECT_TRUE(os::StartThread(L"signals", [&] {
      os::Sleep(50);
      os::SignalEvent(event);
    }));
    const auto start = os::NowMs();
    EXPECT_TRUE(os::AwaitEvent(event));
    EXPECT_GE(os::NowMs() + kClockStep, start + 50);
    EXPECT_TRUE(os::AwaitEvent(event)) << "it stays signalled";
  });
}

os::Result<os::Process> Start(const world::Launch& launch) {
  const auto token = os::SessionUserToken(world::kUserSession);
  if (!token) return os::Error{token.error()};
  const auto environment = os::CreateEnvironment(*token);
  if (!environment) return os::Error{environment.error()};
  return os::StartAsUser(*token, launch.program, launch.commandLine, *environment, L"winsta0\\default");
}

TEST_F(ProcessContract, AProgramRunsAsTheUserAndLeavesItsExitCode) {
  for (const std::uint32_t code : {0U, 7U}) {
    const auto process = Start(world::OtherProgram(code));
    ASSERT_TRUE(process);
    EXPECT_EQ(os::WaitForProcess(*process, kLong).outcome, os::WaitOutcome::Ended);
    EXPECT_EQ(os::ProcessExitCode(*process), code);
  }
  const auto lasting = Start(world::OtherProgram(std::nullopt));
  ASSERT_TRUE(lasting);
  EXPECT_EQ(os::WaitForProcess(*lasting, 10).outcome, os::WaitOutcome::TimedOut);
  EXPECT_EQ(os::ProcessExitCode(*lasting), 259U) << "STILL_ACTIVE";
}

TEST_F(ProcessContract, WhatCannotBeStartedOrWaitedForSaysWhy) {
  EXPECT_EQ(Start({L"C:\\Windows\\NoSuchProgram.exe", L""}).error(), 2U) << "ERROR_FILE_NOT_FOUND";
  const auto nothing = os::WaitForProcess(os::Process(), 10);
  EXPECT_TRUE(nothing.outcome == os::WaitOutcome::Failed && nothing.error == 6) << "ERROR_INVALID_HANDLE";
  EXPECT_EQ(os::ProcessExitCode(os::Process()), std::nullopt);
  for (const std::uint32_t nobody : {0U, 0x7FFFFFF0U}) {
    EXPECT_EQ(os::ProcessImagePath(nobody), L"");
    EXPECT_EQ(os::OpenToAwaitIdle(nobody).error(), 87U) << "ERROR_INVALID_PARAMETER";
    EXPECT_EQ(os::OpenToEnd(nobody).error(), 87U);
    EXPECT_EQ(os::QueryProcessPackage(nobody).error(), 87U);
  }
}

TEST_F(ProcessContract, AnotherProgramIsAwaitedAndEnded) {
  const auto window = world::OpenWindow();
  const auto id = os::WindowProcessId(window);
  const auto path = os::ProcessImagePath(id);
  const auto running = os::RunningPrograms();
  ASSERT_TRUE(running);
  EXPECT_GT(std::count(running->begin(), running->end(), path.substr(path.rfind(L'\\') + 1)), 0);
  world::Run([&] {
    const auto start = os::NowMs();
    const auto idle = os::OpenToAwaitIdle(id);
    ASSERT_TRUE(idle);
    os::AwaitInputIdle(*idle, kLong);
    os::AwaitInputIdle(os::Process(), kLong);
    EXPECT_LT(os::NowMs(), start + kLong) << "it waits for input, and nobody waits for none";
    EXPECT_FALSE(os::TerminateProcess(*idle, 1)) << "not opened for that";
    EXPECT_TRUE(os::IsWindow(window));
    const auto ending = os::OpenToEnd(id);
    ASSERT_TRUE(ending);
    EXPECT_EQ(os::WaitForProcess(*ending, 10).outcome, os::WaitOutcome::TimedOut);
    EXPECT_TRUE(os::TerminateProcess(*ending, 1));
    EXPECT_EQ(os::WaitForProcess(*ending, kLong).outcome, os::WaitOutcome::Ended);
    EXPECT_FALSE(os::IsWindow(window));
  });
}

TEST_F(ProcessContract, ADesktopProgramHasNoPackage) {
  const auto package = os::QueryProcessPackage(os::WindowProcessId(world::OpenWindow()));
  ASSERT_TRUE(package && !package->appUserModelId);
  EXPECT_EQ(package->fullName + package->familyName + package->path, L"");
}

TEST_F(ProcessContract, ATokenGivesWhatItHolds) {
  const auto own = os::OwnToken();
  ASSERT_TRUE(own);
  EXPECT_TRUE(os::EnablePrivilege(*own, L"SeSystemEnvironmentPrivilege"));
  EXPECT_EQ(os::EnablePrivilege(*own, L"SeCreateTokenPrivilege").error(), 1300U) << "ERROR_NOT_ALL_ASSIGNED";
  EXPECT_EQ(os::EnablePrivilege(*own, L"SeNoSuchPrivilege").error(), 1313U) << "ERROR_NO_SUCH_PRIVILEGE";
  const auto user = os::SessionUserToken(world::kUserSession);
  EXPECT_TRUE(user && os::Impersonate(*user));
  os::RevertToOwnRights();
  EXPECT_EQ(os::Impersonate(os::Token()).error(), 6U) << "ERROR_INVALID_HANDLE";
  EXPECT_EQ(os::ConsoleSession().value_or(99), *os::OwnSession()) << "the user of the world is before it";
}

TEST_F(ProcessContract, AThreadWithComReachesTheManagementServices) {
  world::Run([] {
    EXPECT_TRUE(os::JoinCom() && os::JoinCom()) << "also twice";
    const auto over = os::NewEvent();
    ASSERT_TRUE(os::StartThread(L"management", [&] {
      EXPECT_TRUE(os::JoinComMultithreaded());
      EXPECT_TRUE(os::InitializeComSecurity());
      const auto locator = os::CreateManagementLocator();
      EXPECT_TRUE(locator && os::ConnectToManagement(*locator, L"ROOT\\CIMV2"));
      os::SignalEvent(over);
    }));
    EXPECT_TRUE(os::AwaitEvent(over));
  });
}

TEST_F(ProcessContract, ALockKeepsOtherThreadsOutAndItsOwnerIn) {
  world::Run([] {
    static os::Lock lock;
    os::Semaphore ended(2);
    int inside = 0, most = 0;
    const auto body = [&] {
      {
        const std::lock_guard outer(lock), inner(lock);
        most = std::max(most, ++inside);
        os::Sleep(20);
        --inside;
      }
      ended.Post();
    };
    const auto start = os::NowMs();
    EXPECT_TRUE(os::StartThread(L"one", body) && os::StartThread(L"another", body));
    EXPECT_TRUE(ended.Wait() && ended.Wait());
    EXPECT_EQ(most, 1);
    EXPECT_GE(os::NowMs() + kClockStep, start + 2 * 20) << "one after the other";
  });
}

TEST_F(ProcessContract, ASemaphoreHandsOnEachCountUpToItsMost) {
  world::Run([] {
    os::Semaphore toOther(2), back(9);
    int served = 0;
    EXPECT_TRUE(os::StartThread(L"other", [&] {
      for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(toOther.Wait());
        ++served;
        back.Post();
      }
    }));
    toOther.Post();
    EXPECT_TRUE(back.Wait());
    EXPECT_EQ(served, 1) << "and waits for more";
    toOther.Post();
    toOther.Post();
    EXPECT_TRUE(back.Wait() && back.Wait());
    EXPECT_EQ(served, 3);
    for (int i = 0; i < 5; ++i) toOther.Post();  // nobody serves any more
    EXPECT_TRUE(toOther.Wait() && toOther.Wait()) << "the most it counts";
  });
}

TEST_F(ProcessContract, TheDateIsOfThisAge) {
  constexpr std::uint64_t kYear = 365ULL * 24 * 3600 * 10'000'000;
  EXPECT_TRUE(os::SystemFileTime() > 400 * kYear && os::SystemFileTime() < 600 * kYear);
}

}  // namespace
