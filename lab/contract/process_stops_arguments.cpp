// What the door asks of Windows management, and what its event sink makes of what it is told.
#include <windows.h>

#include <gtest/gtest.h>
#include <wbemidl.h>

#include <cwchar>
#include <string>

#include "contract/patched.h"
#include "kit/com_object.h"
#include "os/process_stops.h"
#include "os/win32/com_pointer.h"
#include "os/win32/event_sink.h"

namespace contract {
namespace {

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
