// SPDX-License-Identifier: MIT
#include "jet/header_page.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <string_view>

#include "jet/bytes.h"
#include "jet/error.h"

namespace jet {

const std::array<std::uint8_t, 128> kHeaderMask = {
    0xB5, 0x6F, 0x03, 0x62, 0x61, 0x08, 0xC2, 0x55, 0xEB, 0xA9, 0x67, 0x72, 0x43, 0x3F, 0x00, 0x9C,
    0x7A, 0x9F, 0x90, 0xFF, 0x80, 0x9A, 0x31, 0xC5, 0x79, 0xBA, 0xED, 0x30, 0xBC, 0xDF, 0xCC, 0x9D,
    0x63, 0xD9, 0xE4, 0xC3, 0x7B, 0x42, 0xFB, 0x8A, 0xBC, 0x4E, 0x86, 0xFB, 0xEC, 0x37, 0x5D, 0x44,
    0x9C, 0xFA, 0xC6, 0x5E, 0x28, 0xE6, 0x13, 0xB6, 0x8A, 0x60, 0x54, 0x94, 0x7B, 0x36, 0xF5, 0x72,
    0xDF, 0xB1, 0x77, 0xF4, 0x13, 0x43, 0xCF, 0xAF, 0xB1, 0x33, 0x34, 0x61, 0x79, 0x5B, 0x92, 0xB5,
    0x7C, 0x2A, 0x05, 0xF1, 0x7C, 0x99, 0x01, 0x1B, 0x98, 0xFD, 0x12, 0x4F, 0x4A, 0x94, 0x6C, 0x3E,
    0x60, 0x26, 0x5F, 0x95, 0xF8, 0xD0, 0x89, 0x24, 0x85, 0x67, 0xC6, 0x1F, 0x27, 0x44, 0xD2, 0xEE,
    0xCF, 0x65, 0xED, 0xFF, 0x07, 0xC7, 0x46, 0xA1, 0x78, 0x16, 0x0C, 0xED, 0xE9, 0x2D, 0x62, 0xD4};

namespace {

constexpr std::size_t kEngineNameOffset = 0x04;
constexpr std::size_t kEngineNameSize = 16;
constexpr std::size_t kVersionOffset = 0x14;
constexpr std::size_t kCodePageOffset = 0x3C;
constexpr std::size_t kDatabaseKeyOffset = 0x3E;
constexpr std::size_t kPasswordOffset = 0x42;
constexpr std::size_t kPasswordSize = 40;
constexpr std::size_t kBuildOffset = 0x6A;
constexpr std::size_t kCollationOffset = 0x6E;
constexpr std::size_t kCreatedOffset = 0x72;

[[noreturn]] void Refuse(ErrorKind kind, const std::string& path, const messages::Message& cause,
                         const messages::Message& remedy) {
  throw Error(kind, path, {}, cause, remedy);
}

void CheckEngine(const std::string& path, const std::byte* page) {
  using namespace std::string_view_literals;
  const std::string_view name(reinterpret_cast<const char*>(page + kEngineNameOffset),
                              kEngineNameSize);
  if (name.starts_with("Standard ACE DB"sv)) {
    Refuse(ErrorKind::kUnsupported, path, message::kLaterAccess, message::kConvertInAccess);
  }
  if (Load32(page) != 0x100 || name != "Standard Jet DB\0"sv) {
    Refuse(ErrorKind::kForeign, path, message::kNoJetDatabase, message::kChooseDatabase);
  }
  const std::uint32_t version = Load8(page + kVersionOffset);
  if (version == 0) {
    Refuse(ErrorKind::kUnsupported, path, message::kAccess97, message::kConvertInAccess);
  }
  if (version != 1) {
    Refuse(ErrorKind::kUnsupported, path, {message::kNewerFormat, {{"<Version>", version}}},
           message::kConvertInAccess);
  }
}

// A blank password is not zeros: the day of creation masks it.
bool HasPassword(const std::byte* page) {
  const double created = std::bit_cast<double>(Load64(page + kCreatedOffset));
  std::uint32_t day = 0;
  if (std::abs(created) < 2147483647.0) {
    day = static_cast<std::uint32_t>(static_cast<std::int32_t>(created));
  }
  for (std::size_t i = 0; i < kPasswordSize; i += 4) {
    if (Load32(page + kPasswordOffset + i) != day) return true;
  }
  return false;
}

}  // namespace

void MaskHeader(std::span<std::byte> page) {
  for (std::size_t i = 0; i < kHeaderMask.size(); ++i) {
    page[kHeaderMaskOffset + i] ^= std::byte{kHeaderMask[i]};
  }
}

RowId HeaderFreeMap(const std::byte* page) {
  std::uint32_t mask = 0;
  for (std::size_t i = 4; i-- > 0;) mask = mask << 8 | kHeaderMask[i];
  return RowId::FromReference(Load32(page + kHeaderFreeMapOffset) ^ mask);
}

HeaderFields CheckHeader(const std::string& path, std::span<const std::byte> first_page,
                         std::uint64_t file_size) {
  if (first_page.size() < kPageSize) {
    Refuse(ErrorKind::kForeign, path, message::kTooShortForDatabase, message::kChooseOtherFile);
  }
  std::array<std::byte, kPageSize> page;
  std::memcpy(page.data(), first_page.data(), kPageSize);
  CheckEngine(path, page.data());
  MaskHeader(page);
  if (file_size % kPageSize != 0) {
    ThrowDamaged(path, {static_cast<PageNumber>(file_size / kPageSize), -1}, message::kCutOff);
  }
  if (file_size > kMaxFileSize) {
    Refuse(ErrorKind::kTooLarge, path, message::kFileTooLarge, message::kRestoreFromBackup);
  }
  if (Load32(&page[kDatabaseKeyOffset]) != 0) {
    Refuse(ErrorKind::kUnsupported, path, message::kEncrypted, message::kDecryptInAccess);
  }
  if (HasPassword(page.data())) {
    Refuse(ErrorKind::kUnsupported, path, message::kPassword, message::kRemovePassword);
  }
  HeaderFields fields;
  fields.build = Load32(&page[kBuildOffset]);
  fields.code_page = Load16(&page[kCodePageOffset]);
  fields.lcid = Load16(&page[kCollationOffset]);
  fields.created = std::bit_cast<double>(Load64(&page[kCreatedOffset]));
  return fields;
}

}  // namespace jet
