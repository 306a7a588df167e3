// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace transcript {

// One command of a transcript and what it answered. In the file a command begins with "$ ", its
// further lines with "> "; then come the lines of standard output, those of standard error behind
// "! ", and the exit code in brackets when it is not 0.
struct Step {
  std::string comment;  // lines before it, with their "#"
  std::string command;
  std::string answer;
};

// Of a file in that form. Text before the first command belongs to its comment.
std::vector<Step> Read(const std::filesystem::path& file);
void Write(const std::filesystem::path& file, const std::vector<Step>& steps);

// A folder for one transcript: empty, with settings of its own, removed at the end.
class Room {
 public:
  Room();
  ~Room();
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  // Runs a command of the shell there, the program in its path; the answer in the file's form.
  // The folder's own path reads "FOLDER".
  std::string Run(const std::string& command) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace transcript
