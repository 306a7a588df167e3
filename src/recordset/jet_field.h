// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/ado.h"
#include "recordset/jet_recordset.h"

namespace recordset {

// A field of an open recordset.
class JetField final : public platform::Field {
 public:
  JetField(JetRecordset& owner, std::size_t index) : owner_(owner), index_(index) {}

  std::string Name() const override;
  platform::DataType Type() const override;
  std::int32_t DefinedSize() const override;
  platform::Variant Value() const override { return owner_.FieldValue(index_); }
  void SetValue(const platform::Variant& value) override { owner_.SetFieldValue(index_, value); }
  platform::Variant OriginalValue() const override { return owner_.OriginalValue(index_); }

 private:
  JetRecordset& owner_;
  std::size_t index_;
};

}  // namespace recordset
