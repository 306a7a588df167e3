// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "files/windows_api.h"
#include "files/windows_path.h"
#include "project/filter_program.h"

namespace project {

namespace {

class Pipe {
 public:
  Pipe() {
    if (!::CreatePipe(&ends_[0], &ends_[1], nullptr, 0)) ends_ = {};
  }
  ~Pipe() {
    CloseEnd(0);
    CloseEnd(1);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  bool valid() const { return ends_[0] != nullptr; }
  HANDLE End(std::size_t which) const { return ends_[which]; }
  void CloseEnd(std::size_t which) {
    if (ends_[which]) ::CloseHandle(ends_[which]);
    ends_[which] = nullptr;
  }
  void Inherit(std::size_t which) {
    ::SetHandleInformation(ends_[which], HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  }

 private:
  std::array<HANDLE, 2> ends_ = {};  // read, write
};

// Full path of the program in a folder of PATH; empty when there is none.
std::wstring FindProgram(const std::string& program) {
  const std::wstring name = files::os::WideText(program).value_or(L"");
  std::wstring folders(::GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
  folders.resize(
      ::GetEnvironmentVariableW(L"PATH", folders.data(), static_cast<DWORD>(folders.size())));
  const DWORD length = ::SearchPathW(folders.c_str(), name.c_str(), L".exe", 0, nullptr, nullptr);
  std::wstring path(length, L'\0');
  path.resize(::SearchPathW(folders.c_str(), name.c_str(), L".exe", length, path.data(), nullptr));
  return path;
}

class Process final : public FilterProcess {
 public:
  ~Process() override {
    if (process_) ::CloseHandle(process_);
  }

  bool Run(const std::string& program, const std::vector<std::string>& arguments) {
    const std::wstring path = FindProgram(program);
    if (path.empty() || !input_.valid() || !output_.valid()) return false;
    // Words without blanks and quotes, which need no marks.
    std::wstring line = L'"' + path + L'"';
    for (const std::string& argument : arguments) {
      line += L' ' + files::os::WideText(argument).value_or(L"");
    }
    input_.Inherit(0);
    output_.Inherit(1);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input_.End(0);
    start.hStdOutput = output_.End(1);
    PROCESS_INFORMATION started = {};
    const bool runs = ::CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, TRUE,
                                       CREATE_NO_WINDOW, nullptr, nullptr, &start, &started);
    input_.CloseEnd(0);
    output_.CloseEnd(1);
    if (!runs) return false;
    ::CloseHandle(started.hThread);
    process_ = started.hProcess;
    return true;
  }

  void Write(std::string_view input) override {
    while (!input.empty()) {
      DWORD count = 0;
      constexpr std::size_t kBlock = 1 << 16;
      const auto wanted = static_cast<DWORD>(std::min(input.size(), kBlock));
      if (!::WriteFile(input_.End(1), input.data(), wanted, &count, nullptr)) break;
      input.remove_prefix(count);
    }
    input_.CloseEnd(1);
  }

  std::string Read() override {
    std::string text;
    std::array<char, 1 << 16> block;
    DWORD count = 0;
    while (::ReadFile(output_.End(0), block.data(), static_cast<DWORD>(block.size()), &count,
                      nullptr) &&
           count > 0) {
      text.append(block.data(), count);
    }
    return text;
  }

  bool WaitAMoment() override {
    constexpr DWORD kMilliseconds = 10;
    return ::WaitForSingleObject(process_, kMilliseconds) != WAIT_TIMEOUT;
  }
  void Kill() override { ::TerminateProcess(process_, 1); }
  bool Succeeded() override {
    DWORD code = 1;
    return ::GetExitCodeProcess(process_, &code) && code == 0;
  }

 private:
  Pipe input_;
  Pipe output_;
  HANDLE process_ = nullptr;
};

}  // namespace

std::unique_ptr<FilterProcess> FilterProcess::Start(const std::string& program,
                                                    const std::vector<std::string>& arguments) {
  auto process = std::make_unique<Process>();
  if (!process->Run(program, arguments)) return nullptr;
  return process;
}

}  // namespace project
