// Names of stored display configurations, as the registry may hold them: a line, a byte a character.
#include <cassert>

#include "display/stored_name.h"
#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto name = fuzz::Input({data, size}).Line();
  std::size_t at = 0;
  for (const auto& [key, subkey] : tessaview::MonitorsOf(name)) {
    assert(name.compare(at, key.size(), key) == 0 && key.find_first_of(L"+*^") == std::wstring::npos);
    assert(subkey.size() == 6 && subkey[0] == L'\\' && subkey[3] == L'\\');
    at += key.size() + 1;
  }
  assert(at == std::min(name.find(L'^'), name.size()) + 1);  // the monitors are the whole of it
  return 0;
}
