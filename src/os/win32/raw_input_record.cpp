#include "os/win32/raw_input_record.h"

#include <cstddef>

#include "os/win32/win32_support.h"

namespace os::win32 {
namespace {

constexpr auto kFailed = static_cast<UINT>(-1);
constexpr std::size_t kReportOffset = offsetof(RAWINPUT, data.hid.bRawData);
static_assert(kReportOffset == 32);

/// The first of the record's reports, cut at what was read.
BytesView FirstReport(const RawInputBuffer& buffer, const RAWINPUT& record, std::size_t read) {
  if (read < kReportOffset || record.data.hid.dwCount == 0) return {};
  const std::size_t length = std::min<std::size_t>(record.data.hid.dwSizeHid, read - kReportOffset);
  return BytesView(buffer.bytes).subspan(kReportOffset, length);
}

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
  if (input.type == kRawInputHid) input.report = FirstReport(buffer, record, read);
  return input;
}

}  // namespace os::win32
