// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "files/file_system.h"
#include "platform/studio.h"
#include "project/item_catalogue.h"

namespace project {

// The catalogue in a file, read when somebody first asks. A file that is missing is an empty
// catalogue unless it was named by the user.
class ItemFile final : public platform::OVItems {
 public:
  ItemFile(files::FileSystem& system, std::string path, bool must_exist);

  // Raises files::Error when the file cannot be read.
  std::optional<std::int32_t> VariantTypeOf(std::string_view item) override;
  const ItemCatalogue& Catalogue();
  // The catalogue if it was read already.
  const ItemCatalogue* Loaded() const { return catalogue_ ? &*catalogue_ : nullptr; }
  // Reads the file again when it changed; true when it did.
  bool Refresh();
  const std::string& path() const { return path_; }

 private:
  files::FileSystem& system_;
  std::string path_;
  bool must_exist_;
  std::optional<ItemCatalogue> catalogue_;
  std::optional<files::FileStamp> stamp_;
};

}  // namespace project
