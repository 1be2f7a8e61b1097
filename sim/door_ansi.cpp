#include "os/ansi.h"
#include "sim/text.h"

namespace os {

std::wstring FromAnsi(BytesView text) {
  return sim::FromCodePage1252(text);
}

}  // namespace os
