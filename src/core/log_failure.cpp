#include "core/log_failure.h"

#include "core/trace_log.h"

namespace tessaview {

void LogError(const wchar_t* what, std::uint32_t error) {
  Log(L"[Failure] %ls, error = %d (0x%X) \n", what, error, error);
}

}  // namespace tessaview
