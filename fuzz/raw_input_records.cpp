// Raw input records: how many bytes of the record were read, in one; size and count of the reports, in four each; then
// the bytes of the reports.
#include <cassert>

#include "fuzz/input.h"
#include "os/win32/hid_reports.h"
#include "touch/report_thinning.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace os::win32;
  fuzz::Input input({data, size});
  const auto read = input.Number<std::uint8_t>();
  const auto reportSize = input.Number<std::uint32_t>(), count = input.Number<std::uint32_t>();
  const auto rest = input.Rest();
  os::Bytes record(read);  // in as much memory, so that each byte beyond is noticed
  for (auto i = kReportsAt; i < record.size() && i - kReportsAt < rest.size(); ++i) record[i] = rest[i - kReportsAt];

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
