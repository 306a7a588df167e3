// SPDX-License-Identifier: MIT
// Changes two text files as one: both are changed or none is, whatever happens in between.
//
//   two-files FOLDER            adds one to the number in FOLDER/one.txt and FOLDER/two.txt
//   two-files FOLDER --crash N  is killed, as by a power button, at its N-th operation on files
//
// Run it with --crash and different numbers, look at the files, and run it again: it says what
// the interrupted run left, and the two numbers are equal.
#include <cstdlib>
#include <iostream>
#include <string>

#include "files/change_journal.h"
#include "files/recovery.h"
#include "tests/support/failing_file_system.h"

namespace {

int Run(files::FileSystem& system, const std::string& folder) {
  // The journal stands beside the first of the files.
  const std::string one = system.Join(folder, "one.txt");
  const std::string two = system.Join(folder, "two.txt");
  // What a journal says is believed only of this file, besides the one that it stands beside.
  const files::Reach is_ours = [target = files::ResolveTarget(system, two)](
                                   const std::string& path) { return path == target; };
  const files::RecoveryPlan found = files::Recover(system, one, is_ours);
  if (!found.message.empty()) std::cout << found.message.English() << '\n';

  files::ChangeSet changes;
  for (const std::string& path : {one, two}) {
    files::FileChange& change = changes.files.emplace_back();
    change.path = path;
    if (system.Exists(path)) change.before = files::ReadFile(system, path);
    change.after =
        std::to_string(std::atoi(change.before ? change.before->c_str() : "0") + 1) + "\n";
  }
  files::ChangeJournal(system, one, is_ours).Commit(changes);
  std::cout << "Both files hold " << *changes.files[0].after;
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 4) {
    std::cerr << "usage: two-files FOLDER [--crash N]\n";
    return 2;
  }
  files::FailingFileSystem system(files::RealFileSystem());
  if (argc == 4) system.Arm({{}, std::atoi(argv[3]), files::Fault::Length::kCrash});
  try {
    return Run(system, argv[1]);
  } catch (const files::Error& error) {
    if (system.fired()) {
      std::cout << "Crashed.\n";
      std::_Exit(137);
    }
    std::cerr << error.what() << '\n';
    return 1;
  }
}
