// Raw input records: how many bytes of the record were read, in two; size and count of the reports, in four each. What
// the bytes of a report say is left to whoever gets them, but for the two that tell a lift.
#include <cassert>

#include "fuzz/input.h"
#include "os/win32/hid_reports.h"
#include "touch/report_thinning.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace os::win32;
  fuzz::Input input({data, size});
  const auto read = input.Number<std::uint16_t>();
  const auto reportSize = input.Number<std::uint32_t>(), count = input.Number<std::uint32_t>();
  auto record = os::Bytes(kReportsAt);
  const auto rest = input.Rest();
  record.insert(record.end(), rest.begin(), rest.end());
  record.resize(read);  // just as much memory, so that each byte beyond is noticed

  auto reports = HidReports(record, reportSize, count);
  assert(reports.size() <= std::uint64_t{reportSize} * count);
  assert(reports.empty() || reports.data() == record.data() + kReportsAt);
  for (std::uint32_t counter = 0; !reports.empty();) {
    const auto report = reports.first(std::min<std::size_t>(reportSize, reports.size()));
    counter = tessaview::ThinReports(counter, report).nextCounter;
    reports = reports.subspan(report.size());
  }
  return 0;
}
