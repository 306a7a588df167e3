// SPDX-License-Identifier: MIT
// Members of a recordset: finding, fields and edits.
#include "com/field_object.h"
#include "com/recordset_object.h"
#include "platform/text.h"

namespace com {

namespace {

std::vector<platform::Variant> ValuesOf(const VARIANT& given) {
  std::vector<platform::Variant> values;
  for (const Value& value : ElementsOf(given)) values.push_back(value.ToVariant());
  return values;
}

std::vector<std::string> NamesOf(const VARIANT& given) {
  std::vector<std::string> names;
  for (const Value& value : ElementsOf(given)) names.push_back(value.ToText());
  return names;
}

}  // namespace

// --- Finding ---

void RecordsetObject::PutFilter(const Arguments& arguments) {
  const platform::Variant filter = arguments.At(0);
  if (!filter.IsText() && filter.ToLong() != 0) {
    Require(ResultOf(platform::kErrFeatureNotAvailable));
  }
  Rows().SetFilter(filter.IsText() ? filter.ToText() : std::string());
}

Value RecordsetObject::Find(const Arguments& arguments) {
  arguments.Demand(1);
  platform::Recordset& rows = Rows();
  const std::int32_t direction = arguments.Long(2, 1);
  if (arguments.Has(3)) {
    rows.SetBookmark({static_cast<std::uint64_t>(arguments.At(3).ToDouble())});
  }
  for (std::int32_t skip = arguments.Long(1); skip > 0; --skip) {
    direction < 0 ? rows.MovePrevious() : rows.MoveNext();
    if (rows.EOF_() || rows.BOF()) return {};
  }
  rows.Find(arguments.Text(0), direction < 0 ? platform::SearchDirection::kBackward
                                             : platform::SearchDirection::kForward);
  return {};
}

Value RecordsetObject::Seek(const Arguments& arguments) {
  arguments.Demand(1);
  const std::int32_t option = arguments.Long(1, 1);
  if (option != 1 && option != 4) Require(ResultOf(platform::kErrFeatureNotAvailable));
  Rows().Seek(ValuesOf(arguments.Raw(0)), static_cast<platform::SeekOption>(option));
  return {};
}

// --- Fields ---

Collection::Source RecordsetObject::FieldSource() const {
  const std::shared_ptr<platform::Recordset> rows = rows_;
  return {[rows] { return rows->FieldCount(); },
          [rows](std::size_t place) { return Value(Make<FieldObject>(rows, place)); },
          [rows](const std::string& name) { return FieldPlace(*rows, name); }, 0,
          platform::kErrItemNotFound};
}

Value RecordsetObject::Fields(const Arguments& arguments) {
  Rows();
  return Collection::Answer(FieldSource(), arguments);
}

// rs("Name") = value
void RecordsetObject::PutField(const Arguments& arguments) {
  if (arguments.size() != 2) Require(DISP_E_BADPARAMCOUNT);
  platform::Recordset& rows = Rows();
  const platform::Variant which = arguments.At(0);
  platform::Field& field = which.IsText() ? rows.Fields(which.ToText())
                                          : rows.Fields(static_cast<std::size_t>(which.ToLong()));
  field.SetValue(arguments.At(1));
}

Value RecordsetObject::GetRows(const Arguments& arguments) {
  constexpr std::int32_t kCurrent = 0, kFirst = 1, kLast = 2;
  platform::Recordset& rows = Rows();
  if (arguments.Has(1)) {
    const platform::Variant start = arguments.At(1);
    const std::int32_t place = start.ToLong();
    if (start.Get<double>()) {
      rows.SetBookmark({static_cast<std::uint64_t>(start.ToDouble())});
    } else if (place == kFirst) {
      rows.MoveFirst();
    } else if (place == kLast) {
      rows.MoveLast();
    } else if (place != kCurrent) {
      Require(ResultOf(platform::kErrInvalidArgument));
    }
  }
  std::vector<std::string> fields;
  const std::vector<std::string> names = rows.FieldNames();
  for (const platform::Variant& which : ValuesOf(arguments.Raw(2))) {
    if (which.IsText()) {
      fields.push_back(which.ToText());
      continue;
    }
    const auto place = static_cast<std::size_t>(which.ToLong());
    if (place >= names.size()) Require(ResultOf(platform::kErrItemNotFound));
    fields.push_back(names[place]);
  }
  return Value::Rows(rows.GetRows(arguments.Long(0, -1), fields));
}

// --- Edits ---

Value RecordsetObject::EditMode(const Arguments&) {
  return Value(static_cast<std::int32_t>(Rows().GetEditMode()));
}

Value RecordsetObject::AddNew(const Arguments& arguments) {
  if (!arguments.Has(0) && NamesOf(arguments.Raw(0)).empty()) {
    Rows().AddNew();
    return {};
  }
  Rows().AddNew(NamesOf(arguments.Raw(0)), ValuesOf(arguments.Raw(1)));
  return {};
}

Value RecordsetObject::Update(const Arguments& arguments) {
  const std::vector<std::string> names = NamesOf(arguments.Raw(0));
  const std::vector<platform::Variant> values = ValuesOf(arguments.Raw(1));
  if (names.size() != values.size()) Require(ResultOf(platform::kErrInvalidArgument));
  for (std::size_t i = 0; i < names.size(); ++i) Rows().Fields(names[i]).SetValue(values[i]);
  Rows().Update();
  return {};
}

Value RecordsetObject::CancelUpdate(const Arguments&) {
  Rows().CancelUpdate();
  return {};
}

Value RecordsetObject::Delete(const Arguments&) {
  Rows().Delete();
  return {};
}

Value RecordsetObject::Requery(const Arguments&) {
  Rows().Requery();
  return {};
}

Value RecordsetObject::Resync(const Arguments&) {
  Rows().Resync();
  return {};
}

}  // namespace com
