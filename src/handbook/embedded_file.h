// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace handbook {

// A file of docs/help, named relative to it: "de/start.html".
struct EmbeddedFile {
  std::string_view name;
  std::string_view bytes;
};

std::span<const EmbeddedFile> EmbeddedFiles();

// Null when there is no such file.
const EmbeddedFile* FindEmbeddedFile(std::string_view name);

}  // namespace handbook
