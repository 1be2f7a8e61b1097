#include "os/services.h"

#include "os/win32/win32_support.h"

namespace os {
namespace {

struct ServiceCloser {
  void operator()(SC_HANDLE handle) const noexcept { CloseServiceHandle(handle); }
};
using Service = std::unique_ptr<SC_HANDLE__, ServiceCloser>;

}  // namespace

std::optional<std::uint32_t> ServiceState(const wchar_t* name) {
  const Service manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT));
  if (!manager) return {};
  const Service service(OpenServiceW(manager.get(), name, SERVICE_QUERY_STATUS));
  if (!service) return {};
  SERVICE_STATUS status{};
  if (QueryServiceStatus(service.get(), &status) == FALSE) return {};
  return status.dwCurrentState;
}

}  // namespace os
