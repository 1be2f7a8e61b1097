#include <algorithm>
#include <cwctype>

#include "tests/contract/world.h"

namespace {

using DeviceContract = contract::Contract;

// ---- The firmware driver ----

constexpr auto kDriver = L"\\\\.\\ZRVACPI";
constexpr std::uint32_t kRequest = 0x0022240C;
const os::Bytes kReadBacklight{'D', 'S', 'T', 'S', 4, 0, 0, 0, 0x32, 0x00, 0x05, 0x00};

TEST_F(DeviceContract, AReplyIsAsLongAsTheDriverMadeItAndTheRestFails) {
  const auto device = os::OpenDevice(kDriver);
  ASSERT_TRUE(device);
  const auto reply = os::Control(*device, kRequest, kReadBacklight, 16);
  ASSERT_TRUE(reply && reply->size() >= 4 && reply->size() <= 16);
  EXPECT_EQ(os::Bytes(reply->begin(), reply->begin() + 4), (os::Bytes{116, 0, 0, 0}));
  EXPECT_EQ(os::Control(*device, kRequest, kReadBacklight, 1), os::Bytes{116}) << "no longer than offered";
  for (const auto size : {2U, 0U}) {
    world::AnswerShort(size);
    const auto cut = os::Control(*device, kRequest, kReadBacklight, 16);
    EXPECT_TRUE(cut && cut->size() == size) << "a short reply is a success";
  }
  EXPECT_FALSE(os::Control(*device, kRequest, {}, 16)) << "nothing asked";
  EXPECT_FALSE(os::Control(*device, kRequest + 4, kReadBacklight, 16)) << "another control code";
  EXPECT_FALSE(os::Control(os::Device(), kRequest, kReadBacklight, 16)) << "nothing open";
  EXPECT_EQ(os::ServiceState(world::kFirmwareService), os::kServiceRunning);
  world::RemoveFirmwareDriver();
  EXPECT_EQ(os::OpenDevice(kDriver).error(), 2U) << "ERROR_FILE_NOT_FOUND";
  EXPECT_EQ(os::ServiceState(world::kFirmwareService), 1U) << "SERVICE_STOPPED";
  EXPECT_EQ(os::ServiceState(L"NoSuchService"), std::nullopt);
}

// ---- HID ----

/// The present interface paths of the C panel's touch controller.
std::vector<std::wstring> TouchPaths() {
  std::vector<std::wstring> paths;
  const auto interfaces = os::HidInterfaces();
  EXPECT_TRUE(interfaces);
  for (const auto& each : *interfaces) {
    auto path = each.path;
    for (auto& letter : path) letter = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(letter)));
    if (path.find(L"VEN_GDX&DEV_1515") != std::wstring::npos) paths.push_back(each.path);
  }
  return paths;
}

TEST_F(DeviceContract, ACollectionTellsWhatItIs) {
  const auto paths = TouchPaths();
  ASSERT_GE(paths.size(), 2U);
  int touchScreens = 0;
  for (const auto& path : paths) {
    const auto device = os::OpenHid(path);
    ASSERT_TRUE(device);
    const auto attributes = os::QueryHidAttributes(*device);
    const auto capabilities = os::QueryHidCapabilities(*device);
    ASSERT_TRUE(attributes && capabilities && attributes->productId == 0x1515);
    const auto inputs = os::HidInputValues(*device), outputs = os::HidOutputValues(*device);
    EXPECT_EQ(inputs.size(), capabilities->inputValueCaps);
    EXPECT_EQ(outputs.size(), capabilities->outputValueCaps);
    if (capabilities->usagePage != 0x0D || capabilities->usage != 4) continue;
    ++touchScreens;
    const auto isX = [](const os::HidValue& value) { return value.usagePage == 1 && value.usage == 0x30; };
    const auto x = std::find_if(inputs.begin(), inputs.end(), isX);
    EXPECT_TRUE(x != inputs.end() && x->reportId != 0 && x->logicalMin == 0 && x->logicalMax > 0);
  }
  EXPECT_GT(touchScreens, 0);
}

TEST_F(DeviceContract, AnOutputReportIsTakenAtItsLengthUntilTheCollectionIsUnplugged) {
  for (const auto& path : TouchPaths()) {
    const auto device = os::OpenHid(path);
    const auto capabilities = device ? os::QueryHidCapabilities(*device) : std::nullopt;
    if (!capabilities || capabilities->outputReportLength == 0) continue;
    os::Bytes report(capabilities->outputReportLength, 0x5A);
    report[0] = os::HidOutputValues(*device).at(0).reportId;
    EXPECT_FALSE(os::WriteHidReport(*device, os::BytesView(report).first(report.size() - 1)));
    EXPECT_TRUE(os::WriteHidReport(*device, report));
    EXPECT_EQ(world::OutputReports(), std::vector<os::Bytes>{report});
    world::UnplugTouch();
    EXPECT_TRUE(TouchPaths().empty());
    EXPECT_EQ(os::OpenHid(path).error(), 2U) << "ERROR_FILE_NOT_FOUND";
    EXPECT_FALSE(os::WriteHidReport(*device, report));
    EXPECT_FALSE(os::QueryHidAttributes(*device));
    EXPECT_FALSE(os::QueryHidCapabilities(os::HidDevice()));
    EXPECT_TRUE(os::HidInputValues(os::HidDevice()).empty());
    return;
  }
  FAIL() << "no collection takes reports";
}

TEST_F(DeviceContract, RawInputDevicesAreCountedListedAndNamed) {
  const auto count = os::RawInputDeviceCount();
  ASSERT_TRUE(count && *count > 0);
  const auto devices = os::RawInputDevices(*count);
  ASSERT_TRUE(devices && devices->size() == *count);
  EXPECT_EQ(os::RawInputDevices(*count - 1).error(), 122U) << "ERROR_INSUFFICIENT_BUFFER";
  std::size_t opened = 0;
  for (const auto device : *devices) {
    const auto collection = os::OpenHid(os::RawDevicePath(device));
    opened += collection ? 1 : 0;
    const auto told = os::QueryRawDevice(device);
    const auto ids = collection ? os::QueryHidAttributes(*collection) : std::nullopt;
    if (told && ids) EXPECT_EQ(std::pair(told->vendorId, told->productId), std::pair(ids->vendorId, ids->productId));
  }
  EXPECT_GE(opened, TouchPaths().size()) << "a name is a path to open";
  EXPECT_EQ(os::RawDevicePath(os::RawDevice{0x7FFFFFF1}), L"") << "no such device";
  EXPECT_FALSE(os::QueryRawDevice(os::RawDevice{0x7FFFFFF1}));
  constexpr auto kSink = os::kRawInputPageOnly | os::kRawInputSink;
  EXPECT_EQ(os::RegisterRawInput(0x0D, 0, kSink, os::WindowHandle::None).error(), 87U) << "a sink without a window";
  EXPECT_TRUE(os::RegisterRawInput(0x0D, 0, os::kRawInputPageOnly, os::WindowHandle::None));
}

TEST_F(DeviceContract, ANodeIsToldByItsFirstHardwareId) {
  const auto nodes = os::OpenHidNodes();
  ASSERT_TRUE(nodes);
  const auto ids = os::FirstHardwareIds(*nodes);
  const auto isOurs = [](const auto& id) {  // Wine 10 makes ids of vendor and product number
    return id.starts_with(L"HID\\VEN_GDX&DEV_1515") || id == L"HID\\VID_5A56&PID_1515";
  };
  EXPECT_GE(std::count_if(ids.begin(), ids.end(), isOurs), 2);
  EXPECT_EQ(os::EnableHidNode(*nodes, ids.size(), true).error(), 259U) << "ERROR_NO_MORE_ITEMS";
}

}  // namespace
