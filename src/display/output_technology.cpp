#include "display/output_technology.h"

#include <limits>

namespace tessaview {
namespace {

struct Technology {
  std::int32_t value;
  const wchar_t* name;
};

constexpr Technology kTechnologies[] = {
    {-1, L"Other"},
    {0, L"HD15 (VGA) "},  // the blank at the end is part of the name
    {1, L"S-video"},
    {2, L"Composite video"},
    {3, L"Component video"},
    {4, L"Digital Video Interface (DVI)"},
    {5, L"High-Definition Multimedia Interface (HDMI)"},
    {6, L"Low Voltage Differential Swing (LVDS)"},
    {8, L"Japanese D"},
    {9, L"SDI"},
    {10, L"External display port"},
    {11, L"Embedded display port"},
    {12, L"External Unified Display Interface (UDI)"},
    {13, L"Embedded UDI"},
    {14, L"Standard definition television (SDTV)"},
    {15, L"Miracast wireless display device"},
    {std::numeric_limits<std::int32_t>::min(), L"Internal"},  // 0x80000000
};

}  // namespace

const wchar_t* OutputTechnologyName(std::int32_t technology) {
  for (const auto& [value, name] : kTechnologies) {
    if (value == technology) return name;
  }
  return L"Unknown";
}

}  // namespace tessaview
