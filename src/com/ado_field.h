// SPDX-License-Identifier: MIT
#pragma once

#include "com/ado_recordset.h"

namespace com {

// A field of a recordset over ADO's objects: of whatever object the recordset has at the time.
class AdoRecordset::AdoField final : public platform::Field {
 public:
  AdoField(AdoRecordset& recordset, std::size_t place) : recordset_(recordset), place_(place) {}

  std::string Name() const override { return recordset_.Names()[place_]; }
  platform::DataType Type() const override {
    return static_cast<platform::DataType>(Ask(L"Type").ToLong());
  }
  std::int32_t DefinedSize() const override { return Ask(L"DefinedSize").ToLong(); }
  platform::Variant Value() const override { return Ask(L"Value"); }
  void SetValue(const platform::Variant& value) override {
    recordset_.session_->Driving(
        [&] { recordset_.Column(place_).Put(L"Value", com::Value(value)); });
  }
  platform::Variant OriginalValue() const override { return Ask(L"OriginalValue"); }

 private:
  platform::Variant Ask(const wchar_t* property) const {
    return recordset_.session_->Driving(
        [&] { return recordset_.Column(place_).Get(property).ToVariant(); });
  }

  AdoRecordset& recordset_;
  std::size_t place_;
};

}  // namespace com
