// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include "files/error.h"
#include "files/windows_api.h"
#include "files/windows_path.h"

namespace files::os {
namespace {

constexpr std::wstring_view kLong = LR"(\\?\)";
constexpr std::wstring_view kLongShare = LR"(\\?\UNC\)";
constexpr std::wstring_view kDevice = LR"(\\.\)";
// A folder must leave room for a name of 12 characters below the system's limit of 260.
constexpr std::size_t kShortPath = 247;

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

bool IsDrive(std::string_view path) {
  const char letter = path.empty() ? '\0' : static_cast<char>(path[0] | 0x20);
  return path.size() >= 2 && path[1] == ':' && letter >= 'a' && letter <= 'z';
}

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(path.size() + MAX_PATH, L'\0');
  for (;;) {
    const DWORD size =
        ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    const bool fits = size < full.size();
    full.resize(size);
    if (fits) return full;
  }
}

}  // namespace

std::optional<std::wstring> WideText(std::string_view utf8) {
  if (utf8.empty()) return std::wstring();
  const int length = static_cast<int>(utf8.size());
  const int count =
      ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, nullptr, 0);
  if (count == 0) return std::nullopt;
  std::wstring wide(static_cast<std::size_t>(count), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), count);
  return wide;
}

std::string Utf8Text(std::wstring_view wide) {
  if (wide.empty()) return {};
  const int length = static_cast<int>(wide.size());
  const int count =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(count), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), count, nullptr, nullptr);
  return utf8;
}

std::wstring SystemPath(const std::string& path) {
  std::optional<std::wstring> wide = WideText(path);
  if (!wide || wide->find(L'\0') != std::wstring::npos) {
    Raise(ErrorKind::kNotFound, path, message::kCannotBeUsed, message::kPathNotText);
  }
  if (wide->empty() || wide->starts_with(kLong)) return *wide;
  if (path.find(':', IsDrive(path) ? 2 : 0) != std::string::npos) {
    Raise(ErrorKind::kNotAFile, path, message::kCannotBeUsed, message::kColonInPath);
  }
  std::wstring full = FullPath(*wide);
  if (full.starts_with(kDevice)) {
    Raise(ErrorKind::kNotAFile, path, message::kCannotBeUsed, message::kDeviceName);
  }
  if (full.size() <= kShortPath) return full;
  if (full.starts_with(LR"(\\)")) return std::wstring(kLongShare) + full.substr(2);
  return std::wstring(kLong) + full;
}

std::string PlainPath(std::wstring_view path) {
  if (path.starts_with(kLongShare)) return R"(\\)" + Utf8Text(path.substr(kLongShare.size()));
  // What stands behind the mark without a drive's letter can be named in no other way.
  const bool has_drive = path.starts_with(kLong) && path.substr(kLong.size()).find(L':') == 1;
  return Utf8Text(has_drive ? path.substr(kLong.size()) : path);
}

std::string_view RootOf(std::string_view path) {
  std::size_t end = path.starts_with(R"(\\?\)") ? 4 : 0;
  if (IsDrive(path.substr(end))) {
    end += 2;
  } else if (end == 0 && path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1])) {
    constexpr const char* kSeparators = "\\/";
    end = std::min(path.find_first_of(kSeparators, 2), path.size());        // the server
    end = std::min(path.find_first_of(kSeparators, end + 1), path.size());  // the share
  }
  if (end < path.size() && IsSeparator(path[end])) ++end;
  return path.substr(0, end);
}

}  // namespace files::os
