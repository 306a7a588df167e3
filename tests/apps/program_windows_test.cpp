// SPDX-License-Identifier: MIT
// The command line program as Windows starts it: wide arguments, pipes, Ctrl+C.
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "files/replace_file.h"
#include "files/windows_handle.h"
#include "files/windows_path.h"
#include "tests/files/temporary_folder.h"

namespace {

struct Answer {
  std::string out;
  std::string err;
  DWORD code = 0;
};

// A running program. Its own folders are below `folder`.
class Program {
 public:
  Program(const TemporaryFolder& folder, const std::string& program, const std::string& line)
      : in_(Pipe(false)), out_(Pipe(true)), err_(Pipe(true)) {
    const std::wstring base = files::os::SystemPath(folder.path());
    ::SetEnvironmentVariableW(L"APPDATA", (base + L"\\Einträge").c_str());
    ::SetEnvironmentVariableW(L"LOCALAPPDATA", (base + L"\\Zustände").c_str());
    ::SetEnvironmentVariableW(L"LANG", L"en");
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in_.theirs.get();
    start.hStdOutput = out_.theirs.get();
    start.hStdError = err_.theirs.get();
    std::wstring words =
        L"\"" + files::os::SystemPath(program) + L"\" " + files::os::WideText(line).value();
    EXPECT_TRUE(::CreateProcessW(nullptr, words.data(), nullptr, nullptr, TRUE,
                                 CREATE_NEW_PROCESS_GROUP, nullptr, base.c_str(), &start,
                                 &started_))
        << ::GetLastError();
    for (Ends* ends : {&in_, &out_, &err_}) ends->theirs = files::os::Handle(INVALID_HANDLE_VALUE);
  }
  ~Program() {
    ::TerminateProcess(started_.hProcess, 1);
    ::CloseHandle(started_.hThread);
    ::CloseHandle(started_.hProcess);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  DWORD group() const { return started_.dwProcessId; }

  void Say(const std::string& bytes) {
    DWORD count = 0;
    ::WriteFile(in_.ours.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
  }

  // Ends its input and waits for its end.
  Answer Finish() {
    in_.ours = files::os::Handle(INVALID_HANDLE_VALUE);
    Answer answer;
    std::thread errors([&] { answer.err = ReadAll(err_.ours.get()); });
    answer.out = ReadAll(out_.ours.get());
    errors.join();
    ::WaitForSingleObject(started_.hProcess, INFINITE);
    ::GetExitCodeProcess(started_.hProcess, &answer.code);
    return answer;
  }

 private:
  struct Ends {
    files::os::Handle ours;
    files::os::Handle theirs;
  };

  static Ends Pipe(bool we_read) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr, write = nullptr;
    EXPECT_TRUE(::CreatePipe(&read, &write, &inherited, 0));
    ::SetHandleInformation(we_read ? read : write, HANDLE_FLAG_INHERIT, 0);
    return {files::os::Handle(we_read ? read : write), files::os::Handle(we_read ? write : read)};
  }

  static std::string ReadAll(HANDLE pipe) {
    std::string text;
    char block[4096];
    for (DWORD count = 0; ::ReadFile(pipe, block, sizeof block, &count, nullptr) && count > 0;) {
      text.append(block, count);
    }
    return text;
  }

  Ends in_, out_, err_;
  PROCESS_INFORMATION started_ = {};
};

class CommandLine : public testing::Test {
 protected:
  Answer Run(const std::string& line, const std::string& input = "") {
    Program program(folder_, OV_PROGRAM, line);
    program.Say(input);
    return program.Finish();
  }

  void Do(const std::string& line) {
    const Answer answer = Run(line);
    EXPECT_EQ(answer.code, 0u) << line << "\n" << answer.err;
  }

  TemporaryFolder folder_;
};

TEST_F(CommandLine, TakesAndGivesTextOfAnyLanguage) {
  Do("new Größe.ovs");
  Do("alias add Größe.ovs Tank1.Füllstand Füllstand");
  EXPECT_TRUE(files::RealFileSystem().Exists(folder_ / "Größe.ovs"));
  EXPECT_EQ(Run("alias list Größe.ovs").out, "1\tTank1.Füllstand\tFüllstand\n");
  const Answer missing = Run("alias list Ёлка.ovs");
  EXPECT_EQ(missing.code, 3u);
  EXPECT_NE(missing.err.find("Ёлка.ovs"), std::string::npos) << missing.err;
  const std::string settings = folder_ / "Einträge\\ovformula";
  EXPECT_TRUE(files::RealFileSystem().IsDirectory(settings)) << "the variable lost its umlaut";
}

TEST_F(CommandLine, PassesBytesThroughPipes) {
  Do("new Plant.ovs");
  Do("alias add Plant.ovs Tank1.Level First");
  Do("alias add Plant.ovs Tank1.Level Second");
  const std::string table = Run("db tables Plant.ovs").out;
  const std::string csv = Run("db export Plant.ovs " + table.substr(0, table.find('\n'))).out;
  EXPECT_NE(csv.find("\r\n"), std::string::npos);
  EXPECT_EQ(csv.find("\r\r"), std::string::npos);
  EXPECT_EQ(table.find('\r'), std::string::npos);
  // A byte that ends a text file of old does not hide what follows.
  const Answer answer = Run("alias delete Plant.ovs -", "First\n\x1a\nSecond\n");
  EXPECT_EQ(answer.code, 1u);
  Do("alias delete Plant.ovs First");
}

TEST_F(CommandLine, GivesTheWindowWhatItWasGiven) {
  namespace fs = std::filesystem;
  const fs::path beside = fs::path(folder_.path()) / "with blank";
  fs::create_directory(beside);
  fs::copy_file(OV_PROGRAM, beside / "ovformula.exe");
  fs::copy_file(OV_SHOW_ARGUMENTS, beside / "ovformula-desktop.exe");
  Program program(folder_, (beside / "ovformula.exe").string(),
                  R"(open --items "a\\" --vbp "say \"x\".vbp" "Größe 1.ovs")");
  const Answer answer = program.Finish();
  EXPECT_EQ(answer.out, R"([--lang][en][--vbp][say "x".vbp][--items][a\][Größe 1.ovs])");
  EXPECT_EQ(answer.code, 7u);
}

// The program waits for its input when the key is pressed; it changes nothing and says so.
TEST_F(CommandLine, EndsWithControlC) {
  ::AllocConsole();  // the key comes from one, also when nothing is read from it
  Do("new Plant.ovs");
  Do("alias add Plant.ovs Tank1.Level First");
  Program program(folder_, OV_PROGRAM, "alias delete Plant.ovs -");
  program.Say("First\n");
  ::Sleep(1000);
  ASSERT_TRUE(::GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, program.group()));
  ::Sleep(200);
  EXPECT_EQ(program.Finish().code, 130u);
  EXPECT_NE(Run("alias list Plant.ovs").out, "");
}

}  // namespace
