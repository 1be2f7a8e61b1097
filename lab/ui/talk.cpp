#include "ui/talk.h"

#include <cwchar>
#include <iterator>
#include <span>

#include "kit/hex_text.h"

namespace lab {
namespace {

constexpr std::size_t kLinesKept = 9;

/// The text, and what else the record carries when it carries anything: a number, [a rectangle], (a point).
std::wstring Describe(const UiMessage& message) {
  std::wstring line(message.text, wcsnlen(message.text, std::size(message.text)));
  if (message.handle != 0) line += L" " + std::to_wstring(static_cast<std::int32_t>(message.handle));
  if (const auto& rect = message.rect; rect[0] != 0 || rect[1] != 0 || rect[2] != 0 || rect[3] != 0) {
    line += L" [" + std::to_wstring(rect[0]) + L", " + std::to_wstring(rect[1]) + L", " + std::to_wstring(rect[2]) +
            L", " + std::to_wstring(rect[3]) + L"]";
  }
  if (message.point[0] != 0 || message.point[1] != 0) {
    line += L" (" + std::to_wstring(message.point[0]) + L", " + std::to_wstring(message.point[1]) + L")";
  }
  return line;
}

}  // namespace

std::wstring Talk::Received(const UiMessage& message) {
  const std::wstring line = Describe(message);
  if (line == L"POWERON") panelOn_ = true;
  if (line == L"POWEROFF") panelOn_ = false;
  lastReceived_ = line;
  NoteOverlay(message);
  Keep(L"controller:  " + line);
  return line;
}

void Talk::NoteOverlay(const UiMessage& message) {
  const std::wstring text = message.text;
  if (text == L"WSPRESS") overlay_.clear();
  if (!text.ends_with(L"NORMAL") && !text.ends_with(L"HOVER")) return;
  overlay_ = text + L" at (" + std::to_wstring(message.rect[0]) + L", " + std::to_wstring(message.rect[1]) + L")";
}

std::wstring Talk::Sent(const UiMessage& message) {
  const std::wstring line = Describe(message);
  Keep(L"UI:  " + line);
  return line;
}

std::wstring Talk::Touched(const unsigned char* report, std::size_t size) {
  const std::wstring line = L"touch " + HexText(std::span(report, size));
  constexpr std::size_t kContactSize = 8;  // report id, tip switch, contact id, X, Y, contact count
  if (size == kContactSize) Follow(report);
  Keep(line);
  return line;
}

void Talk::Follow(const unsigned char* contact) {
  const bool down = (contact[1] & 1) != 0;
  if (down && !fingerDown_) trail_.clear();
  trail_.push_back({contact[3] | contact[4] << 8, contact[5] | contact[6] << 8});
  fingerDown_ = down;
}

void Talk::Keep(std::wstring line) {
  lines_.push_back(std::move(line));
  if (lines_.size() > kLinesKept) lines_.pop_front();
}

}  // namespace lab
