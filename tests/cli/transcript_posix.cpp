// SPDX-License-Identifier: MIT
#include "tests/cli/transcript.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace transcript {

namespace {

std::string ReadFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void ReplaceAll(std::string& text, const std::string& what, const std::string& by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

// The text with each line behind the prefix; a missing line end is shown.
std::string Lines(const std::string& text, const std::string& prefix) {
  std::string result;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) result.append(prefix).append(line).append("\n");
  if (!text.empty() && text.back() != '\n') result += "[no line end]\n";
  return result;
}

// A folder with a program `ovformula` that is that for Windows, tried in place of the one beside
// the tests; it shows our paths below drive Z:.
const char* WindowsPrograms() { return std::getenv("OV_WINDOWS_PROGRAMS"); }

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  ReplaceAll(text, from, to);
  return text;
}

// Paths below the folder in the form that they have here; in JSON their separator is escaped.
void TurnWindowsPaths(std::string& text, const std::string& folder, const std::string& separator) {
  const std::string there = "Z:" + Replaced(folder, "/", separator);
  for (auto at = text.find(there); at != std::string::npos; at = text.find(there, at)) {
    const auto end = std::min(text.find_first_of(" \t\n\"'<>:;,", at + there.size()), text.size());
    const std::string below = text.substr(at + there.size(), end - at - there.size());
    const std::string here = folder + Replaced(below, separator, "/");
    text.replace(at, end - at, here);
    at += here.size();
  }
}

void Prepare(const std::filesystem::path& folder) {
  const std::string programs = WindowsPrograms() ? WindowsPrograms() : OV_PROGRAM_FOLDER;
  const std::string environment =
      "export HOME='" + folder.string() + "' XDG_CONFIG_HOME='" + folder.string() +
      "/.config' XDG_STATE_HOME='" + folder.string() + "/.state' XDG_DATA_HOME= LC_ALL=C.UTF-8 " +
      "LANG=C.UTF-8 TZ=UTC EXAMPLE='" OV_SOURCE_DIR "/examples/plant' PATH='" + programs +
      "':\"$PATH\"\ncd '" + (folder / "room").string() + "'\n";
  std::filesystem::create_directory(folder / "room");
  std::ofstream(folder / "environment", std::ios::binary) << environment;
}

}  // namespace

std::vector<Step> Read(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::vector<Step> steps;
  std::string comment;
  bool in_command = false;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("$ ")) {
      steps.push_back({std::move(comment), line.substr(2), ""});
      comment.clear();
      in_command = true;
    } else if (in_command && line.starts_with("> ")) {
      steps.back().command += "\n" + line.substr(2);
    } else if (line.starts_with("# ")) {
      comment += line + "\n";
    } else if (!steps.empty()) {
      steps.back().answer += line + "\n";
      in_command = false;
    }
  }
  return steps;
}

void Write(const std::filesystem::path& file, const std::vector<Step>& steps) {
  std::ofstream out(file, std::ios::binary);
  for (const Step& step : steps) {
    std::string command = step.command;
    ReplaceAll(command, "\n", "\n> ");
    out << step.comment << "$ " << command << "\n" << step.answer;
  }
}

Room::Room() {
  std::string pattern = (std::filesystem::temp_directory_path() / "ovformula-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
  folder_ = std::filesystem::canonical(pattern);
  Prepare(folder_);
}

Room::~Room() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string Room::Run(const std::string& command) const {
  std::ofstream(folder_ / "script", std::ios::binary)
      << ". '" << (folder_ / "environment").string() << "'\n"
      << command << "\n";
  const std::string call = "sh '" + (folder_ / "script").string() + "' >'" +
                           (folder_ / "out").string() + "' 2>'" + (folder_ / "err").string() +
                           "' </dev/null";
  const int status = std::system(call.c_str());
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  std::string answer =
      Lines(ReadFile(folder_ / "out"), "") + Lines(ReadFile(folder_ / "err"), "! ");
  if (code != 0) answer += "[" + std::to_string(code) + "]\n";
  if (WindowsPrograms()) {
    for (const char* separator : {"\\\\", "\\"})
      TurnWindowsPaths(answer, (folder_ / "room").string(), separator);
  }
  ReplaceAll(answer, (folder_ / "room").string(), "FOLDER");
  ReplaceAll(answer, "\r", "");
  return answer;
}

}  // namespace transcript
