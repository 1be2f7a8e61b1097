#include "os/win32/raw_input_record.h"

#include <cstddef>

#include "os/win32/hid_reports.h"
#include "os/win32/win32_support.h"

namespace os::win32 {
namespace {

constexpr auto kFailed = static_cast<UINT>(-1);
static_assert(offsetof(RAWINPUT, data.hid.bRawData) == kReportsAt);

}  // namespace

RawInput ReadRawInput(HRAWINPUT handle, RawInputBuffer& buffer) {
  UINT announced = 0;
  GetRawInputData(handle, RID_INPUT, nullptr, &announced, sizeof(RAWINPUTHEADER));
  UINT room = sizeof buffer;
  const UINT read = GetRawInputData(handle, RID_INPUT, &buffer, &room, sizeof(RAWINPUTHEADER));

  RawInput input;
  input.sizeMatches = read == announced;
  if (read == kFailed || read < sizeof(RAWINPUTHEADER)) return input;

  const auto& record = reinterpret_cast<const RAWINPUT&>(buffer);
  input.type = record.header.dwType;
  input.device = ToDoor<RawDevice>(record.header.hDevice);
  if (input.type != kRawInputHid || read < kReportsAt) return input;
  const auto& hid = record.data.hid;
  input.reports = HidReports(BytesView(buffer.bytes).first(read), hid.dwSizeHid, hid.dwCount);
  if (!input.reports.empty()) input.reportSize = hid.dwSizeHid;
  return input;
}

}  // namespace os::win32
