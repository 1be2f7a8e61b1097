// What the door asks of Windows about sessions, users, programs and their ends, where Wine only pretends to serve it.
#include <windows.h>

#include <gtest/gtest.h>
#include <userenv.h>
#include <wbemidl.h>
#include <wtsapi32.h>

#include <cstring>
#include <cwchar>
#include <string>
#include <utility>

#include "contract/patched.h"
#include "kit/com_object.h"
#include "os/process_stops.h"
#include "os/processes.h"
#include "os/win32/com_pointer.h"
#include "os/win32/event_sink.h"

// The cross-compiler's headers lack appmodel.h.
extern "C" __declspec(dllimport) LONG WINAPI GetPackageFullName(HANDLE process, UINT32* length, PWSTR name);
extern "C" __declspec(dllimport) LONG WINAPI GetPackageFamilyName(HANDLE process, UINT32* length, PWSTR name);

namespace contract {
namespace {

TEST(ProcessArguments, SessionsComeInTheSystemsOrderAndAreFreed) {
  static WTS_SESSION_INFOW listed[]{{0, nullptr, WTSListen}, {2, nullptr, WTSActive}, {65536, nullptr, WTSListen}};
  static void* freed;
  CONTRACT_PATCH(WTSEnumerateSessionsW, [](auto server, auto, auto version, auto sessions, auto count) -> BOOL {
    *sessions = listed, *count = 3;
    return server == nullptr && version == 1;
  });
  CONTRACT_PATCH(WTSFreeMemory, [](auto memory) { freed = memory; });
  const auto sessions = os::Sessions();
  ASSERT_TRUE(sessions && sessions->size() == 3 && freed == listed);
  EXPECT_TRUE((*sessions)[1].id == 2 && (*sessions)[1].state == os::kSessionActive && (*sessions)[2].id == 65536);
}

TEST(ProcessArguments, AProgramIsStartedAsTheUserAndNotMore) {
  static std::wstring asked;
  static STARTUPINFOW startup;
  static DWORD startFlags;
  static void* block;
  CONTRACT_PATCH(CreateEnvironmentBlock, [](auto environment, auto token, auto inherit) -> BOOL {
    *environment = &asked;
    return token == reinterpret_cast<HANDLE>(0x70) && inherit == TRUE;
  });
  CONTRACT_PATCH(DestroyEnvironmentBlock, [](auto environment) -> BOOL { return block = environment, TRUE; });
  CONTRACT_PATCH(CreateProcessAsUserW,
                 [](auto token, auto program, auto commandLine, auto process, auto thread, auto inherit, auto flags,
                    auto environment, auto folder, auto start, auto) -> BOOL {
                   asked = std::wstring(program) + L"|" + (commandLine != nullptr ? commandLine : L"none") + L"|" +
                           start->lpDesktop;
                   startup = *start, startFlags = flags;
                   const bool plain = !process && !thread && !inherit && !folder && environment == &asked;
                   return SetLastError(plain && token == reinterpret_cast<HANDLE>(0x70) ? 740 : 1), FALSE;
                 });
  {
    os::Token token{os::TokenHandle{0x70}};
    const auto environment = os::CreateEnvironment(token);
    ASSERT_TRUE(environment);
    for (const auto* commandLine : {L"", L"a -x"}) {
      EXPECT_EQ(os::StartAsUser(token, L"a.exe", commandLine, *environment, L"desk").error(), 740U);
      EXPECT_EQ(asked, *commandLine == 0 ? L"a.exe|none|desk" : L"a.exe|a -x|desk");
    }
    (void)token.release();  // no handle of the system's
  }
  EXPECT_EQ(block, &asked) << "the environment is given back";
  EXPECT_EQ(startFlags, DWORD{CREATE_UNICODE_ENVIRONMENT | NORMAL_PRIORITY_CLASS});
  startup.lpDesktop = nullptr;
  STARTUPINFOW plain{};
  plain.cb = sizeof plain;
  EXPECT_EQ(std::memcmp(&startup, &plain, sizeof plain), 0);
}

TEST(ProcessArguments, OnlyTheLocalSystemAccountIsTheSystem) {
  static BOOL is;
  CONTRACT_PATCH(IsWellKnownSid, [](PSID sid, WELL_KNOWN_SID_TYPE type) -> BOOL {
    return sid != nullptr && type == WinLocalSystemSid && is;
  });
  for (const BOOL answer : {TRUE, FALSE}) {
    is = answer;
    EXPECT_EQ(os::RunsAsSystem(), answer != FALSE);
  }
  CONTRACT_PATCH(OpenProcessToken, [](auto, auto, auto) -> BOOL { return FALSE; });
  EXPECT_TRUE(os::RunsAsSystem()) << "it cannot be told";
}

TEST(ProcessArguments, ForeignRightsThatCannotBeGivenBackEndTheProcess) {
  static UINT ended;
  CONTRACT_PATCH(RevertToSelf, []() -> BOOL { return SetLastError(ERROR_GEN_FAILURE), FALSE; });
  CONTRACT_PATCH(TerminateProcess, [](auto process, auto code) -> BOOL {
    return ended = process == GetCurrentProcess() ? code : 0, TRUE;
  });
  os::RevertToOwnRights();
  EXPECT_EQ(ended, 31U);
}

TEST(ProcessArguments, APathThatIsTooLongIsCut) {
  CONTRACT_PATCH(QueryFullProcessImageNameW, [](auto, auto flags, auto path, auto size) -> BOOL {
    if (flags != 0 || *size < 300) return FALSE;
    return std::wmemset(path, L'x', *size = 299), path[299] = 0, TRUE;
  });
  EXPECT_EQ(os::ProcessImagePath(GetCurrentProcessId()), std::wstring(259, L'x'));
}

// ---- Packages, two of whose functions are looked up when the program runs ----

static_assert(os::kNoApplication == 15703);  // APPMODEL_ERROR_NO_APPLICATION

/// Answers a package function: its text, for the process or package that it is asked about.
LONG Tell(bool right, const wchar_t* text, UINT32* length, PWSTR to) {
  if (!right) return ERROR_INVALID_PARAMETER;
  const auto size = static_cast<UINT32>(std::wcslen(text) + 1);
  if (std::exchange(*length, size) < size) return ERROR_INSUFFICIENT_BUFFER;
  return std::memcpy(to, text, size * sizeof(wchar_t)), ERROR_SUCCESS;
}

LONG WINAPI TellUserModel(HANDLE process, UINT32* length, PWSTR to) {
  return Tell(process != nullptr, L"Family!App", length, to);
}

LONG WINAPI TellPath(PCWSTR package, UINT32* length, PWSTR to) {
  return Tell(std::wcscmp(package, L"Full_1.0") == 0, L"C:\\Apps\\Full", length, to);
}

TEST(PackageArguments, APackagedProgramTellsAllOfItsPackage) {
  CONTRACT_PATCH(GetProcAddress, [](auto, LPCSTR name) -> FARPROC {
    void* found = nullptr;
    if (std::strcmp(name, "GetApplicationUserModelId") == 0) found = reinterpret_cast<void*>(&TellUserModel);
    if (std::strcmp(name, "GetPackagePathByFullName") == 0) found = reinterpret_cast<void*>(&TellPath);
    return reinterpret_cast<FARPROC>(found);
  });
  CONTRACT_PATCH(GetPackageFullName, [](auto, auto length, auto to) { return Tell(true, L"Full_1.0", length, to); });
  CONTRACT_PATCH(GetPackageFamilyName, [](auto, auto length, auto to) { return Tell(true, L"Family", length, to); });
  const auto packaged = os::QueryProcessPackage(GetCurrentProcessId());
  ASSERT_TRUE(packaged && packaged->appUserModelId);
  EXPECT_EQ(*packaged->appUserModelId + L" " + packaged->fullName + L" " + packaged->familyName + L" " + packaged->path,
            L"Family!App Full_1.0 Family C:\\Apps\\Full");
}

// ---- The ends of processes, as Windows management tells them ----

std::string gTold;

constexpr os::ProcessStopEvents kEvents{
    .stopped = [](const std::string& name) { gTold += "[" + name + "]"; },
    .completed = [](std::uint32_t result) { gTold += "completed " + std::to_string(result); },
    .progressed = [] { gTold += "progressed "; }};

VARIANT gName;  // of an event's process

TEST(EventSink, IsTwoInterfacesAndTellsEachNameAndHowTheQueryGoesOn) {
  const os::win32::ComPointer<IWbemObjectSink> sink(new os::win32::EventSink(kEvents));
  for (const auto& id : {IID_IUnknown, IID_IWbemObjectSink}) {
    void* same = nullptr;
    EXPECT_TRUE(sink->QueryInterface(id, &same) == S_OK && same == sink.get());
    EXPECT_EQ(sink->Release(), 1U) << "it had been added";
  }
  void* other = sink.get();
  EXPECT_EQ(sink->QueryInterface(IID_IWbemClassObject, &other), E_NOINTERFACE);
  EXPECT_EQ(other, nullptr);

  auto event = lab::ComObject().With(
      4, +[](void*, LPCWSTR property, long, VARIANT* value, CIMTYPE*, long*) -> HRESULT {
        if (std::wcscmp(property, L"ProcessName") == 0) return VariantCopy(value, &gName);
        return value->vt = VT_I4, value->lVal = 7, S_OK;
      });
  auto* const object = static_cast<IWbemClassObject*>(event.Interface());
  IWbemClassObject* objects[]{object, nullptr, object};
  gTold.clear();
  for (const long count : {0L, 1L}) {
    EXPECT_EQ(sink->Indicate(count, count == 0 ? objects : nullptr), static_cast<HRESULT>(WBEM_E_INVALID_PARAMETER));
  }
  for (const VARTYPE noText : {VT_EMPTY, VT_I4}) {
    gName.vt = noText;
    EXPECT_EQ(sink->Indicate(1, objects), 0);
  }
  gName.vt = VT_BSTR;
  gName.bstrVal = SysAllocString(L"Caf\u00E9.exe");
  EXPECT_EQ(sink->Indicate(3, objects), 0);
  VariantClear(&gName);
  for (const long flags : {WBEM_STATUS_PROGRESS + 0L, 1L, WBEM_STATUS_COMPLETE + 0L}) {
    EXPECT_EQ(sink->SetStatus(flags, static_cast<HRESULT>(0x80041006), nullptr, nullptr), 0);
  }
  EXPECT_EQ(gTold, "[][][Caf\xE9.exe][Caf\xE9.exe]progressed completed 2147749894") << "code page 1252";
}

// ---- What is asked of COM and of the services ----

std::wstring gAsked;
HRESULT gAnswer;  // of the query
IUnknown *gSink, *gStubGiven;
lab::ComObject gServices, gApartment, gStub;

HRESULT WINAPI MakeStub(void*, IUnknown* sink, IUnknown** stub) {
  gSink = sink;
  return *stub = gStubGiven = static_cast<IUnknown*>(gStub.Interface()), S_OK;
}

HRESULT WINAPI AskStub(IUnknown* stub, const IID* id, void** same) {
  return stub->AddRef(), *same = stub, IsEqualIID(*id, IID_IWbemObjectSink) ? S_OK : E_NOINTERFACE;
}

HRESULT WINAPI Query(void*, BSTR language, BSTR query, long flags, IWbemContext* context, IWbemObjectSink* sink) {
  gAsked += std::wstring(language) + L" " + query + L" " + std::to_wstring(flags) +
            (!context && sink == gStubGiven ? L"|" : L" otherwise|");
  return gAnswer;
}

HRESULT WINAPI Cancel(void*, IWbemObjectSink* sink) {
  return gAsked += sink == gStubGiven ? L"cancel|" : L"cancel otherwise|", S_OK;
}

TEST(ProcessStopArguments, TheQueryIsAskedThroughAStubAndCancelledWhenItIsClosed) {
  CONTRACT_PATCH(CoCreateInstance, [](auto& id, auto, auto where, auto& interfaceId, auto object) -> HRESULT {
    if (id != CLSID_UnsecuredApartment || interfaceId != IID_IUnsecuredApartment) return REGDB_E_CLASSNOTREG;
    gAsked += L"apartment " + std::to_wstring(where) + L"|";
    return *object = gApartment.Interface(), S_OK;
  });
  gServices = lab::ComObject().With(4, Cancel).With(23, Query);
  gApartment = lab::ComObject().With(3, MakeStub);
  gStub = lab::ComObject().With(0, AskStub);
  gAsked.clear();
  os::Management services{os::ManagementHandle{reinterpret_cast<std::uintptr_t>(gServices.Interface())}};
  for (const HRESULT answer : {E_ACCESSDENIED, S_OK}) {
    gAnswer = answer;
    auto subscription = os::SubscribeToProcessStops(services, L"SELECT it", kEvents);
    EXPECT_EQ(subscription.error(), answer == S_OK ? 0U : 0x80070005U);
    if (!subscription) continue;
    gTold.clear();
    static_cast<IWbemObjectSink*>(gSink)->SetStatus(WBEM_STATUS_PROGRESS, 0, nullptr, nullptr);
    EXPECT_EQ(gTold, "progressed ") << "the sink is what the stub stands for";
  }
  EXPECT_EQ(gAsked, L"apartment 4|WQL SELECT it 128|apartment 4|WQL SELECT it 128|cancel|");
  EXPECT_TRUE(gServices.releases() == 0 && gApartment.releases() == 1 && gStub.releases() == 1);
  services.reset();
  EXPECT_EQ(gServices.releases(), 1);
}

TEST(ProcessStopArguments, ComIsJoinedAndSecuredForCallsOfTheServices) {
  CONTRACT_PATCH(CoInitializeEx, [](auto, auto how) -> HRESULT { return how == COINIT_MULTITHREADED ? 1 : E_FAIL; });
  EXPECT_TRUE(os::JoinComMultithreaded()) << "S_FALSE is joined as well";
  CONTRACT_PATCH(CoInitializeSecurity,
                 [](auto descriptor, auto count, auto services, auto, auto authentication, auto impersonation,
                    auto identities, auto capabilities, auto) -> HRESULT {
                   const bool plain = !descriptor && count == -1 && !services && !identities && capabilities == 0;
                   return plain && authentication == 0 && impersonation == 3 ? RPC_E_TOO_LATE : S_OK;
                 });
  EXPECT_EQ(os::InitializeComSecurity().error(), 0x80010119U);
  CONTRACT_PATCH(CoSetProxyBlanket,
                 [](auto proxy, auto authentication, auto authorization, auto name, auto level, auto impersonation,
                    auto identity, auto capabilities) -> HRESULT {
                   const bool plain = proxy && !name && !identity && capabilities == 0 && authorization == 0;
                   return plain && authentication == 10 && level == 3 && impersonation == 3 ? E_NOINTERFACE : S_OK;
                 });
  os::Management services{os::ManagementHandle{0x70}};
  EXPECT_EQ(os::SetManagementBlanket(services).error(), 0x80004002U);
  (void)services.release();  // no object of COM's
}

}  // namespace
}  // namespace contract
