#include "sim/hid_collection.h"

#include <algorithm>

namespace sim {
namespace {

constexpr std::uint16_t kGenericPage = 0x01, kConsumerPage = 0x0C, kDigitizerPage = 0x0D, kMakerPage = 0xFF00;
constexpr std::uint16_t kMouse = 2, kConsumerControl = 1, kTouchScreen = 4, kTouchPad = 5;
constexpr std::uint16_t kX = 0x30, kY = 0x31, kContactId = 0x51;
constexpr std::uint8_t kPadReport = 17, kModeReport = 3;

/// Fills in what can be told from the rest: node id, interface path, and how many values there are.
HidCollection Completed(HidCollection collection, const std::wstring& device, const std::wstring& instance) {
  const auto hardwareId = L"HID\\" + device;
  collection.hardwareIds = {hardwareId, L"HID_DEVICE"};
  collection.path = L"\\\\?\\HID#" + device + L"#" + instance + L"#{4d1e55b2-f16f-11cf-88cb-001111000030}";
  collection.capabilities.inputValueCaps = static_cast<std::uint16_t>(collection.inputValues.size());
  collection.capabilities.outputValueCaps = static_cast<std::uint16_t>(collection.outputValues.size());
  return collection;
}

HidCollection OfController(os::HidCapabilities capabilities) {
  HidCollection collection;
  collection.attributes = {kTouchVendor, kTouchProduct, 0x0100};
  collection.capabilities = capabilities;
  return collection;
}

}  // namespace

HidCollection MakeTouchScreen() {
  auto screen = OfController({.usage = kTouchScreen, .usagePage = kDigitizerPage, .inputReportLength = 16});
  screen.inputValues = {{kDigitizerPage, kContactId, kScreenReport, 0, 9},
                        {kGenericPage, kX, kScreenReport, 0, 1920},
                        {kGenericPage, kY, kScreenReport, 0, 515}};
  return Completed(std::move(screen), L"VEN_GDX&DEV_1515&Col01", L"5&2d94a1f&0&0000");
}

HidCollection MakeTouchPad() {
  auto pad = OfController({.usage = kTouchPad, .usagePage = kDigitizerPage, .inputReportLength = 16});
  pad.inputValues = {{kDigitizerPage, kContactId, kPadReport, 0, 4},
                     {kGenericPage, kX, kPadReport, 0, 3840},
                     {kGenericPage, kY, kPadReport, 0, 1030}};
  return Completed(std::move(pad), L"VEN_GDX&DEV_1515&Col02", L"5&2d94a1f&0&0001");
}

HidCollection MakeModeSwitch() {
  auto mode = OfController({.usage = 1, .usagePage = kMakerPage, .inputReportLength = 64, .outputReportLength = 64});
  mode.outputValues = {{kMakerPage, 1, kModeReport, 0, 255}};
  return Completed(std::move(mode), L"VEN_GDX&DEV_1515&Col06", L"5&2d94a1f&0&0005");
}

HidCollection MakeMouse() {
  HidCollection mouse;
  mouse.attributes = {0x1A7C, 0x0031, 0x0200};
  mouse.capabilities = {.usage = kMouse, .usagePage = kGenericPage, .inputReportLength = 8};
  mouse.inputValues = {{kGenericPage, kX, 0, -127, 127}, {kGenericPage, kY, 0, -127, 127}};
  mouse.exclusive = true;
  return Completed(std::move(mouse), L"VID_1A7C&PID_0031", L"7&1c4e7a0&0&0000");
}

HidCollection MakeMediaKeys() {
  HidCollection keys;
  keys.attributes = {0x1A7C, 0x0044, 0x0100};
  keys.capabilities = {.usage = kConsumerControl, .usagePage = kConsumerPage, .inputReportLength = 3};
  return Completed(std::move(keys), L"VID_1A7C&PID_0044&Col02", L"7&23c19d&0&0001");
}

}  // namespace sim
