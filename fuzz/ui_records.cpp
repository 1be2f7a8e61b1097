// What programs may send to the service window in the UI's name, on a laptop that is kept for 500 inputs.
//
// An input is one record, or several with "\n--\n" between them. A record begins with its kind: 'f' for a text of the
// UI's (102), 'h' for a copy of a file (104), any other letter for a kind that there is not. Its texts follow, each
// with a NUL behind it; a byte is a character there, one from 0x80 on the high half of a character of two bytes. The
// rest are the fields of a text: handle, rectangle and point. A number from 1 to 4 in place of a handle stands for a
// window: an ordinary one, a companion, one that refuses to be moved, one that hangs. Behind a capital letter the
// record stands as it is, with whatever size it has.
//
// What a finding takes may have happened before it: all inputs since the last boot are in the file "ui_records.story",
// which is an input, too.
#include <array>
#include <cassert>
#include <cctype>
#include <cstdio>
#include <memory>

#include "fuzz/input.h"
#include "sim/laptop.h"

namespace {

const std::string kBetweenRecords = "\n--\n";
constexpr unsigned kInputsOfALaptop = 500;
constexpr std::size_t kTextBytes = 520, kFieldBytes = 32;

/// Everything that was played since the laptop was booted, kept up to date so that it is there when the program dies.
class Story {
 public:
  Story() : file_(std::fopen("ui_records.story", "wb"), &std::fclose) { assert(file_); }

  void Tell(os::BytesView input) {
    std::fwrite(input.data(), 1, input.size(), file_.get());
    std::fwrite(kBetweenRecords.data(), 1, kBetweenRecords.size(), file_.get());
    std::fflush(file_.get());
  }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

os::Bytes Text(fuzz::Input input) {
  os::Bytes text;
  while (!input.empty()) {
    const auto byte = input.Number<std::uint8_t>();
    text.push_back(byte < 0x80 ? byte : input.Number<std::uint8_t>());
    text.push_back(byte < 0x80 ? 0 : byte);
  }
  text.resize(std::max(text.size(), kTextBytes));  // a longer one makes the record too long
  return text;
}

void Append(os::Bytes& record, os::BytesView part) {
  record.insert(record.end(), part.begin(), part.end());
}

class Life {
 public:
  Life() {
    laptop_.Boot();
    laptop_.ui.Send(L"ALIVE");
    laptop_.desktop.OpenTaskbar(laptop_.displays.bPanel(), sim::Edge::Bottom, 48);
  }

  void Play(os::BytesView input) {
    story_.Tell(input);
    OpenWindows();
    for (fuzz::Input records(input); !records.empty();) Send(fuzz::Input(records.Until(kBetweenRecords)));
    assert(laptop_.Settle() && !laptop_.ExitCode());
    assert(laptop_.trace.Malformed().empty());
    assert(laptop_.firmware.OpenHandles() + laptop_.processes.OpenHandles() + laptop_.apps.OpenManagers() == 0);
    assert(laptop_.sessions.OpenTokens() + laptop_.sessions.OpenEnvironments() == 0);
  }

 private:
  void Send(fuzz::Input input) {
    const auto letter = input.Number<std::uint8_t>();
    const auto kind = static_cast<std::uint64_t>(std::tolower(letter));
    os::Bytes record;
    if (std::islower(letter) != 0) {
      for (auto texts = kind == sim::Ui::kFileCopyKind ? 3 : 1; texts > 0; --texts) {
        Append(record, Text(fuzz::Input(input.Until({'\0'}))));
      }
    }
    if (kind == sim::Ui::kTextKind && !record.empty()) AppendFields(record, input);
    Append(record, input.Rest());
    laptop_.ui.SendRaw(kind, record);
  }

  void AppendFields(os::Bytes& record, fuzz::Input& input) {
    auto handle = input.Number<std::uint64_t>();
    if (handle - 1 < windows_.size()) handle = static_cast<std::uint64_t>(windows_[handle - 1]);
    record.resize(record.size() + sizeof handle);
    tessaview::PutLittleEndian(&record[record.size() - sizeof handle], handle);
    const auto end = record.size() + kFieldBytes - sizeof handle;
    Append(record, input.Bytes(kFieldBytes - sizeof handle));
    record.resize(end);
  }

  /// Each that was closed is opened anew.
  void OpenWindows() {
    const sim::Window kinds[] = {{.area = {100, 100, 900, 700}},
                                 {.title = L"NORV Digit Keys"},
                                 {.area = {200, 1200, 900, 1500}, .refusesMoves = true},
                                 {.title = L"Hangs", .responsive = false}};
    for (std::size_t i = 0; i < windows_.size(); ++i) {
      if (laptop_.desktop.Find(windows_[i]) == nullptr) windows_[i] = laptop_.desktop.Open(kinds[i]);
    }
  }

  Story story_;
  std::array<os::WindowHandle, 4> windows_{};
  sim::Laptop laptop_{{.saved = L"On", .uiRunning = true}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static std::unique_ptr<Life> life;
  static unsigned inputs = 0;
  if (inputs++ % kInputsOfALaptop == 0) {
    life.reset();
    life = std::make_unique<Life>();
  }
  life->Play({data, size});
  return 0;
}
