// SPDX-License-Identifier: MIT
// The command line program.
#include <istream>
#include <ostream>

#include "apps/process.h"
#include "apps/standard_buffer.h"
#include "cli/run.h"
#include "files/real_file_system.h"

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
                       apps::Environment,
                       apps::ProgramFolder(argv[0]),
                       &apps::CatchInterrupts(),
                       &in_buffer.failure(),
                       &out_buffer.failure()};
  return cli::Run(apps::Arguments(argc, argv), console);
}
