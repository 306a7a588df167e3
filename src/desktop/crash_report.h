// SPDX-License-Identifier: MIT
// What the log of a crash needs of the operating system. Only what may be called when anything may
// be broken: no memory is asked for.
#pragma once

#include <string_view>

namespace desktop::crash {

// Makes faults that would end the program call WriteOnce first.
void CatchFaults();

// Writes the log if none was written yet. `context`: where the fault happened, as the system gave
// it; null for here.
void WriteOnce(std::string_view fault, const void* context);

long ProcessNumber();

// A file that grows at its end.
class File {
 public:
  explicit File(const char* path);
  ~File();
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool IsOpen() const;
  void Write(std::string_view text) const;
  // The functions that are being called, the innermost first, as places in the program.
  void WritePlaces(const void* context) const;

 private:
  void* handle_;
};

}  // namespace desktop::crash
