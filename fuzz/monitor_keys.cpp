// What monitors say of themselves: device ids, and an identification block (EDID). Two lines, the instance ids of
// monitor and adapter; eight bytes, bus number and address; then the block.
#include "display/monitor_keys.h"

#include <cassert>

#include "core/text.h"
#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaview;
  fuzz::Input input({data, size});
  os::MonitorDevice device;
  device.instanceId = input.Line();
  device.adapterInstanceId = input.Line();
  device.busNumber = input.Number<std::uint32_t>();
  device.address = input.Number<std::uint32_t>();

  const auto edid = ReadEdidIdentity(input.Rest());
  assert(edid.serial.size() <= 12);
  const auto shortKey = ShortMonitorKey(device.instanceId, edid), longKey = LongMonitorKey(device, edid);
  assert(shortKey.ends_with(L'_' + shortKey.substr(shortKey.size() - 2)) && longKey.starts_with(shortKey));
  assert(longKey == UpperCased(longKey));
  return 0;
}
