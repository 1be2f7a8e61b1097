// set_edid OUTPUT MAKER PRODUCT NAME WIDTH HEIGHT WIDTH_MM HEIGHT_MM
//
// Gives an output of the X server the identification that a real panel carries: a 128-byte EDID as its RandR property,
// from where Wine takes it into the registry.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <string>

namespace {

using Edid = std::array<unsigned char, 128>;

struct Panel {
  std::string maker;  // three capital letters
  unsigned product;
  std::string name;  // at most 12 characters
  unsigned width, height, widthMm, heightMm;
};

unsigned char Low(unsigned value) {
  return static_cast<unsigned char>(value & 0xFF);
}
unsigned char HighNibbles(unsigned first, unsigned second) {
  return static_cast<unsigned char>((first >> 8) << 4 | second >> 8);
}

/// The preferred timing: the panel's own resolution at 60 Hz.
void WriteTiming(unsigned char* to, const Panel& panel) {
  constexpr unsigned kHorizontalBlank = 160, kHertz = 60;
  const unsigned verticalBlank = std::max(20U, panel.height / 30);
  const unsigned clock = (panel.width + kHorizontalBlank) * (panel.height + verticalBlank) * kHertz / 10000;
  const std::array<unsigned char, 18> timing{Low(clock),
                                             Low(clock >> 8),
                                             Low(panel.width),
                                             Low(kHorizontalBlank),
                                             HighNibbles(panel.width, kHorizontalBlank),
                                             Low(panel.height),
                                             Low(verticalBlank),
                                             HighNibbles(panel.height, verticalBlank),
                                             48,  // horizontal sync offset and width
                                             32,
                                             0x35,  // vertical sync offset 3, width 5
                                             0,
                                             Low(panel.widthMm),
                                             Low(panel.heightMm),
                                             HighNibbles(panel.widthMm, panel.heightMm),
                                             0,
                                             0,
                                             0x18};  // digital, separate syncs
  std::copy(timing.begin(), timing.end(), to);
}

/// A display descriptor with a text: its tag, then the text, a line feed and blanks.
void WriteText(unsigned char* to, unsigned char tag, std::string text) {
  text += '\n';
  text.resize(13, ' ');
  to[3] = tag;
  std::copy(text.begin(), text.end(), to + 5);
}

Edid MakeEdid(const Panel& panel) {
  Edid edid{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
  unsigned maker = 0;
  for (const char letter : panel.maker) maker = maker << 5 | static_cast<unsigned>(letter - '@');
  edid[8] = Low(maker >> 8);
  edid[9] = Low(maker);
  edid[10] = Low(panel.product);
  edid[11] = Low(panel.product >> 8);
  edid[12] = 1;                        // serial number
  edid[16] = 1, edid[17] = 30;         // made in week 1 of 2020
  edid[18] = 1, edid[19] = 4;          // version 1.4
  edid[20] = 0xA5;                     // digital, 8 bits a colour, DisplayPort
  edid[21] = Low(panel.widthMm / 10);  // centimetres
  edid[22] = Low(panel.heightMm / 10);
  edid[23] = 120;   // gamma 2.2
  edid[24] = 0x02;  // the first timing is the preferred one
  std::fill(edid.begin() + 38, edid.begin() + 54, static_cast<unsigned char>(1));  // no standard timings
  WriteTiming(edid.data() + 54, panel);
  WriteText(edid.data() + 72, 0xFC, panel.name);
  WriteText(edid.data() + 90, 0xFE, "PANEL");
  edid[111] = 0x10;  // the last descriptor is empty
  edid[127] = Low(0U - std::accumulate(edid.begin(), edid.end() - 1, 0U));
  return edid;
}

bool SetProperty(Display* display, const std::string& outputName, const Edid& edid) {
  XRRScreenResources* resources = XRRGetScreenResourcesCurrent(display, DefaultRootWindow(display));
  for (int i = 0; i < resources->noutput; i++) {
    const XRROutputInfo* output = XRRGetOutputInfo(display, resources, resources->outputs[i]);
    if (output->name != outputName) continue;
    const Atom property = XInternAtom(display, "EDID", False);
    XRRChangeOutputProperty(display, resources->outputs[i], property, XA_INTEGER, 8, PropModeReplace, edid.data(),
                            static_cast<int>(edid.size()));
    XSync(display, False);
    return true;
  }
  return false;
}

unsigned Number(const char* text) {
  return static_cast<unsigned>(std::strtoul(text, nullptr, 0));
}

}  // namespace

int main(int count, char** words) {
  if (count != 9) {
    std::fputs("usage: set_edid OUTPUT MAKER PRODUCT NAME WIDTH HEIGHT WIDTH_MM HEIGHT_MM\n", stderr);
    return 2;
  }
  Display* display = XOpenDisplay(nullptr);
  if (display == nullptr) {
    std::fputs("set_edid: no X server\n", stderr);
    return 1;
  }
  const Panel panel{words[2],         Number(words[3]), words[4],        Number(words[5]),
                    Number(words[6]), Number(words[7]), Number(words[8])};
  if (SetProperty(display, words[1], MakeEdid(panel))) return 0;
  std::fprintf(stderr, "set_edid: no output %s\n", words[1]);
  return 1;
}
