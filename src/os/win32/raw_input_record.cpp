#include "os/win32/raw_input_record.h"

#include <cstddef>

#include "os/win32/win32_support.h"

namespace os::win32 {
namespace {

constexpr auto kFailed = static_cast<UINT>(-1);
constexpr std::size_t kReportOffset = offsetof(RAWINPUT, data.hid.bRawData);
static_assert(kReportOffset == 32);

/// All of the record's reports, cut at what was read.
BytesView ReportsIn(const RawInputBuffer& buffer, const RAWINPUT& record, std::size_t read) {
  if (read < kReportOffset) return {};
  const auto announced = std::uint64_t{record.data.hid.dwCount} * record.data.hid.dwSizeHid;
  const auto length = std::min<std::uint64_t>(announced, read - kReportOffset);
  return BytesView(buffer.bytes).subspan(kReportOffset, static_cast<std::size_t>(length));
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
  if (input.type != kRawInputHid) return input;
  input.reports = ReportsIn(buffer, record, read);
  if (!input.reports.empty()) input.reportSize = record.data.hid.dwSizeHid;
  return input;
}

}  // namespace os::win32
