#include "core/factory_config.h"

#include "os/registry.h"
#include "os/services.h"

namespace tessaview {

bool IsRetailDemoServiceRunning() {
  return os::ServiceState(L"RetailDemo") == os::kServiceRunning;
}

bool IsRetailDemo() {
  if (IsRetailDemoServiceRunning()) return true;
  return os::ReadRegistryText(kFactoryConfigKey, L"RetailDemo", kFactoryValueBytes) == L"1";
}

}  // namespace tessaview
