#include "core/factory_config.h"

#include "os/registry.h"
#include "os/services.h"

namespace tessaview {

bool IsRetailDemo() {
  if (os::ServiceState(L"RetailDemo") == os::kServiceRunning) return true;
  return os::ReadRegistryText(kFactoryConfigKey, L"RetailDemo", kFactoryValueBytes) == L"1";
}

}  // namespace tessaview
