// SPDX-License-Identifier: MIT
#include "jet/properties.h"

#include <bit>
#include <charconv>
#include <cstring>

#include "jet/bytes.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

// "MR2" 00, then blocks:  u32 length with itself, u16 kind, content
//   kind 0x80:    names: u16 length, UTF-16
//   kind 0 or 1:  u32 length with itself, u16 length and name of the column, then values:
//                 u16 length with itself, u8 flag, u8 type, u16 name number, u16 length, data
constexpr char kSignature[] = {'M', 'R', '2', '\0'};
constexpr std::uint16_t kNamesBlock = 0x80;
constexpr std::size_t kBlockHead = 6;

using View = std::span<const std::byte>;

// Takes pieces from the front of a view; empty and failed when it is too short.
class Cursor {
 public:
  explicit Cursor(View bytes) : bytes_(bytes) {}
  bool failed() const { return failed_; }
  bool done() const { return failed_ || bytes_.empty(); }

  View Take(std::size_t size) {
    if (size > bytes_.size()) {
      failed_ = true;
      return {};
    }
    const View piece = bytes_.first(size);
    bytes_ = bytes_.subspan(size);
    return piece;
  }
  std::size_t Take16() {
    const View piece = Take(2);
    return piece.empty() ? 0 : Load16(piece.data());
  }
  std::size_t Take32() {
    const View piece = Take(4);
    return piece.empty() ? 0 : Load32(piece.data());
  }
  // A piece that begins with its own length, of which `head` bytes were taken already.
  View TakeRest(std::size_t length, std::size_t head) {
    if (length < head) failed_ = true;
    return failed_ ? View() : Take(length - head);
  }

 private:
  View bytes_;
  bool failed_ = false;
};

std::string Hex(View bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::byte b : bytes) {
    text += kDigits[static_cast<unsigned>(b) >> 4];
    text += kDigits[static_cast<unsigned>(b) & 15];
  }
  return text;
}

std::string NumberText(double number) {
  char buffer[32];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
}

// Access stores some numbers wider than their type says, so the length decides.
std::string ValueText(std::uint8_t type, View data) {
  switch (static_cast<ColumnType>(type)) {
    case ColumnType::kBoolean:
      return !data.empty() && data[0] != std::byte{0} ? "true" : "false";
    case ColumnType::kText:
    case ColumnType::kMemo:
      return DecodeUtf16(data);
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
      if (data.size() == 1) return std::to_string(Load8(data.data()));
      if (data.size() == 2) return std::to_string(static_cast<std::int16_t>(Load16(data.data())));
      if (data.size() == 4) return std::to_string(static_cast<std::int32_t>(Load32(data.data())));
      break;
    case ColumnType::kSingle:
      if (data.size() == 4) return NumberText(double{std::bit_cast<float>(Load32(data.data()))});
      break;
    case ColumnType::kDouble:
      if (data.size() == 8) return NumberText(std::bit_cast<double>(Load64(data.data())));
      break;
    default:
      break;
  }
  return Hex(data);
}

bool ReadNames(Cursor content, std::vector<std::string>& names) {
  while (!content.done()) {
    const std::size_t size = content.Take16();
    names.push_back(DecodeUtf16(content.Take(size)));
  }
  return !content.failed();
}

bool ReadValues(Cursor content, const std::vector<std::string>& names,
                std::vector<Property>& properties) {
  Cursor head(content.TakeRest(content.Take32(), 4));
  const std::string column = DecodeUtf16(head.Take(head.Take16()));
  while (!content.done()) {
    Cursor value(content.TakeRest(content.Take16(), 2));
    value.Take(1);
    const View type = value.Take(1);
    const std::size_t name = value.Take16();
    const View data = value.Take(value.Take16());
    if (value.failed() || name >= names.size()) return false;
    Property property;
    property.column = column;
    property.name = names[name];
    property.type = Load8(type.data());
    property.text = ValueText(property.type, data);
    properties.push_back(std::move(property));
  }
  return !content.failed() && !head.failed();
}

}  // namespace

std::optional<std::vector<Property>> DecodeProperties(View bytes) {
  Cursor blob(bytes);
  const View signature = blob.Take(sizeof kSignature);
  if (signature.empty() || std::memcmp(signature.data(), kSignature, sizeof kSignature) != 0) {
    return std::nullopt;
  }
  std::vector<std::string> names;
  std::vector<Property> properties;
  while (!blob.done()) {
    const std::size_t length = blob.Take32();
    const std::size_t kind = blob.Take16();
    const Cursor content(blob.TakeRest(length, kBlockHead));
    if (blob.failed()) return std::nullopt;
    const bool sound = kind == kNamesBlock ? ReadNames(content, names)
                       : kind <= 1         ? ReadValues(content, names, properties)
                                           : true;
    if (!sound) return std::nullopt;
  }
  if (blob.failed()) return std::nullopt;
  return properties;
}

}  // namespace jet
