// SPDX-License-Identifier: MIT
#include "recordset/jet_field.h"

#include "recordset/value_conversion.h"

namespace recordset {

std::string JetField::Name() const { return owner_.query_->output()[index_].name; }

platform::DataType JetField::Type() const { return DataTypeOf(owner_.ColumnOf(index_).type); }

std::int32_t JetField::DefinedSize() const { return DefinedSizeOf(owner_.ColumnOf(index_)); }

}  // namespace recordset
