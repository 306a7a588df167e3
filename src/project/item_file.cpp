// SPDX-License-Identifier: MIT
#include "project/item_file.h"

namespace project {

ItemFile::ItemFile(files::FileSystem& system, std::string path, bool must_exist)
    : system_(system), path_(std::move(path)), must_exist_(must_exist) {}

const ItemCatalogue& ItemFile::Catalogue() {
  if (!catalogue_) {
    stamp_ = system_.Stamp(path_);
    const bool read = stamp_ || must_exist_;
    catalogue_ = read ? ItemCatalogue::Parse(files::ReadFile(system_, path_)) : ItemCatalogue();
  }
  return *catalogue_;
}

bool ItemFile::Refresh() {
  if (!catalogue_ || system_.Stamp(path_) == stamp_) return false;
  catalogue_.reset();
  return true;
}

std::optional<std::int32_t> ItemFile::VariantTypeOf(std::string_view item) {
  return Catalogue().TypeOf(item);
}

}  // namespace project
