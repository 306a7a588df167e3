// SPDX-License-Identifier: MIT
// The command line program.
#include <cstdlib>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "apps/process.h"
#include "apps/standard_buffer.h"
#include "cli/run.h"
#include "files/real_file_system.h"

namespace {

std::string Environment(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  return value ? value : "";
}

}  // namespace

int main(int argc, char** argv) {
  apps::PrepareProcess();
  apps::StandardBuffer in_buffer(apps::kStandardInput), out_buffer(apps::kStandardOutput),
      err_buffer(apps::kStandardError);
  std::istream in(&in_buffer);
  std::ostream out(&out_buffer), err(&err_buffer);
  err.setf(std::ios::unitbuf);
  cli::Console console{in,
                       out,
                       err,
                       err,
                       files::RealFileSystem(),
                       apps::IsTerminal(apps::kStandardOutput),
                       apps::IsTerminal(apps::kStandardError),
                       Environment,
                       apps::ProgramFolder(argv[0]),
                       &apps::CatchInterrupts(),
                       &in_buffer.failure(),
                       &out_buffer.failure()};
  return cli::Run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc), console);
}
