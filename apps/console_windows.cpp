// SPDX-License-Identifier: MIT
#include "apps/console_windows.h"

#include <algorithm>
#include <optional>

#include "files/windows_path.h"

namespace apps {

namespace {

constexpr wchar_t kControlZ = 0x1A;
constexpr DWORD kMaxPiece = 8192;  // characters; older systems refuse larger ones

bool IsHigh(wchar_t c) { return (c & 0xFC00) == 0xD800; }

// The bytes of `text` that are whole characters.
std::size_t WholeCharacters(std::string_view text) {
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if (byte < 0x80) break;
    if (byte < 0xC0) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
    return length > back ? text.size() - back : text.size();
  }
  return text.size();
}

// Bytes that are no text are shown as the replacement character.
std::wstring Shown(const std::string& text) {
  if (std::optional<std::wstring> wide = files::os::WideText(text)) return *wide;
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int count = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(count));
  return wide;
}

}  // namespace

bool ConsoleInput::Read(HANDLE console, char* data, std::size_t size, std::size_t& count) {
  count = 0;
  while (pending_.empty() && !ended_) {
    wchar_t line[1024];
    DWORD read = 0;
    const DWORD first = high_ != 0 ? 1 : 0;
    line[0] = high_;
    if (!::ReadConsoleW(console, line + first, 1024 - first, &read, nullptr)) return false;
    // Ctrl+C leaves nothing and this trace.
    if (read == 0) return ::GetLastError() != ERROR_OPERATION_ABORTED;
    std::wstring_view text(line, first + read);
    high_ = IsHigh(text.back()) ? text.back() : L'\0';
    if (high_ != 0) text.remove_suffix(1);
    ended_ = !text.empty() && text[0] == kControlZ;
    if (!ended_) pending_ = files::os::Utf8Text(text);
  }
  count = std::min(size, pending_.size());
  pending_.copy(data, count);
  pending_.erase(0, count);
  return true;
}

bool ConsoleOutput::Write(HANDLE console, const char* data, std::size_t size) {
  part_.append(data, size);
  const std::size_t whole = WholeCharacters(part_);
  const std::wstring wide = Shown(part_.substr(0, whole));
  part_.erase(0, whole);
  for (std::size_t at = 0; at < wide.size();) {
    const auto piece = static_cast<DWORD>(std::min<std::size_t>(wide.size() - at, kMaxPiece));
    DWORD written = 0;
    if (!::WriteConsoleW(console, wide.data() + at, piece, &written, nullptr)) return false;
    at += written;
  }
  return true;
}

}  // namespace apps
