// SPDX-License-Identifier: MIT
#include "com/value.h"

#include <cstring>
#include <new>
#include <span>

#include "com/failure.h"

namespace com {

std::wstring Wide(std::string_view utf8) {
  std::wstring wide(utf8.size(), L'\0');
  if (utf8.empty()) return wide;
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                         wide.data(), static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string Utf8(std::wstring_view wide) {
  std::string utf8(wide.size() * 3, '\0');
  if (wide.empty()) return utf8;
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                          static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(length));
  return utf8;
}

BSTR NewText(std::string_view utf8) {
  const std::wstring wide = Wide(utf8);
  BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (!text) throw std::bad_alloc();
  return text;
}

std::string TextOf(BSTR text) { return text ? Utf8({text, SysStringLen(text)}) : std::string(); }

namespace {

SAFEARRAY* NewBytes(std::span<const std::uint8_t> bytes) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
  if (!array) throw std::bad_alloc();
  if (!bytes.empty()) std::memcpy(array->pvData, bytes.data(), bytes.size());
  return array;
}

// The content of an array while the object lives.
class ArrayAccess {
 public:
  explicit ArrayAccess(SAFEARRAY* array) : array_(array) {
    Require(SafeArrayAccessData(array_, &data_));
  }
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;
  ~ArrayAccess() { SafeArrayUnaccessData(array_); }

  template <class T>
  T* As() const {
    return static_cast<T*>(data_);
  }
  // Number of elements of a dimension, from 1 on.
  std::size_t Count(UINT dimension) const {
    LONG low = 0, high = -1;
    Require(SafeArrayGetLBound(array_, dimension, &low));
    Require(SafeArrayGetUBound(array_, dimension, &high));
    return static_cast<std::size_t>(high - low + 1);
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

struct FromPlatform {
  VARIANT& out;

  void operator()(platform::Empty) const {}
  void operator()(platform::Null) const { out.vt = VT_NULL; }
  void operator()(platform::Missing) const {
    out.vt = VT_ERROR;
    out.scode = DISP_E_PARAMNOTFOUND;
  }
  void operator()(bool v) const {
    out.vt = VT_BOOL;
    out.boolVal = v ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::int32_t v) const {
    out.vt = VT_I4;
    out.lVal = v;
  }
  void operator()(double v) const {
    out.vt = VT_R8;
    out.dblVal = v;
  }
  void operator()(platform::Date v) const {
    out.vt = VT_DATE;
    out.date = v.days;
  }
  void operator()(const std::string& v) const {
    out.bstrVal = NewText(v);
    out.vt = VT_BSTR;
  }
  void operator()(const std::vector<std::uint8_t>& v) const {
    out.parray = NewBytes(v);
    out.vt = VT_ARRAY | VT_UI1;
  }
  void operator()(const std::shared_ptr<platform::Object>& v) const {
    const auto* host = dynamic_cast<const HostObject*>(v.get());
    out.vt = VT_DISPATCH;
    out.pdispVal = host ? host->object().get() : nullptr;
    if (out.pdispVal) out.pdispVal->AddRef();
  }
};

platform::Variant Whole(std::int64_t v) {
  if (v == static_cast<std::int32_t>(v)) return static_cast<std::int32_t>(v);
  return static_cast<double>(v);
}

platform::Variant BytesOf(SAFEARRAY* array) {
  const ArrayAccess access(array);
  const auto* bytes = access.As<std::uint8_t>();
  return std::vector<std::uint8_t>(bytes, bytes + access.Count(1));
}

platform::Variant Real(const VARIANT& value) {
  Value real;
  Require(VariantChangeType(real.Out(), Plain(value), 0, VT_R8));
  return real.get().dblVal;
}

}  // namespace

Value::Value(const platform::Variant& value) : Value() {
  std::visit(FromPlatform{value_}, value.storage());
}

void Value::Copy(const VARIANT& other) { Require(VariantCopy(&value_, Plain(other))); }

Value Value::CopyOf(const VARIANT& value) {
  Value result;
  Require(VariantCopyInd(&result.value_, Plain(value)));
  return result;
}

Value Value::ByReference(Value& referred) {
  Value result(OfType{static_cast<VARTYPE>(VT_BYREF | VT_VARIANT)});
  result.value_.pvarVal = &referred.value_;
  return result;
}

Value Value::Array(std::vector<Value> values) {
  Value result;
  result.value_.parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
  if (!result.value_.parray) throw std::bad_alloc();
  result.value_.vt = VT_ARRAY | VT_VARIANT;
  auto* elements = static_cast<VARIANT*>(result.value_.parray->pvData);
  for (std::size_t i = 0; i < values.size(); ++i) values[i].MoveTo(elements[i]);
  return result;
}

Value Value::List(const std::vector<std::string>& texts) {
  std::vector<Value> values;
  values.reserve(texts.size());
  for (const std::string& text : texts) values.emplace_back(text);
  return Array(std::move(values));
}

Value Value::Rows(const platform::RowBlock& rows) {
  SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(rows.FieldCount()), 0},
                              {static_cast<ULONG>(rows.RowCount()), 0}};
  Value result;
  result.value_.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  if (!result.value_.parray) throw std::bad_alloc();
  result.value_.vt = VT_ARRAY | VT_VARIANT;
  auto* next = static_cast<VARIANT*>(result.value_.parray->pvData);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    for (std::size_t field = 0; field < rows.FieldCount(); ++field) {
      Value(rows.At(field, row).ToVariant()).MoveTo(*next++);
    }
  }
  return result;
}

Reference<IDispatch> Value::Object() const {
  if (!IsObject() || !value_.punkVal) return {};
  if (value_.vt == VT_DISPATCH) return Reference<IDispatch>::Share(value_.pdispVal);
  return Reference<IUnknown>::Share(value_.punkVal).As<IDispatch>();
}

platform::Variant Value::ToVariant() const { return com::ToVariant(value_); }

platform::Variant ToVariant(const VARIANT& given) {
  if (given.vt & VT_BYREF) return ToVariant(Value::CopyOf(given).get());
  switch (given.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return platform::Null();
    case VT_ERROR:
      if (given.scode == DISP_E_PARAMNOTFOUND) return platform::Missing();
      return static_cast<std::int32_t>(given.scode);
    case VT_BOOL:
      return given.boolVal != VARIANT_FALSE;
    case VT_I1:
      return Whole(given.cVal);
    case VT_UI1:
      return Whole(given.bVal);
    case VT_I2:
      return Whole(given.iVal);
    case VT_UI2:
      return Whole(given.uiVal);
    case VT_I4:
      return Whole(given.lVal);
    case VT_UI4:
      return Whole(given.ulVal);
    case VT_INT:
      return Whole(given.intVal);
    case VT_UINT:
      return Whole(given.uintVal);
    case VT_I8:
      return Whole(given.llVal);
    case VT_R8:
      return given.dblVal;
    case VT_DATE:
      return platform::Date{given.date};
    case VT_BSTR:
      return TextOf(given.bstrVal);
    case VT_ARRAY | VT_UI1:
      return BytesOf(given.parray);
    case VT_DISPATCH:
    case VT_UNKNOWN: {
      Reference<IDispatch> object = Value::CopyOf(given).Object();
      if (!object) return {};
      return std::shared_ptr<platform::Object>(std::make_shared<HostObject>(std::move(object)));
    }
    default:
      return Real(given);
  }
}

std::vector<Value> ElementsOf(const VARIANT& given) {
  const Value value = Value::CopyOf(given);
  std::vector<Value> elements;
  const VARIANT& plain = value.get();
  if (!(plain.vt & VT_ARRAY)) {
    const bool nothing =
        plain.vt == VT_EMPTY || (plain.vt == VT_ERROR && plain.scode == DISP_E_PARAMNOTFOUND);
    if (!nothing) elements.push_back(value);
    return elements;
  }
  if (!plain.parray) return elements;
  if (SafeArrayGetDim(plain.parray) != 1) Require(DISP_E_TYPEMISMATCH);
  const ArrayAccess access(plain.parray);
  const std::size_t count = access.Count(1);
  const VARTYPE type = static_cast<VARTYPE>(plain.vt & ~VT_ARRAY);
  for (std::size_t i = 0; i < count; ++i) {
    if (type == VT_VARIANT) {
      elements.push_back(Value::CopyOf(access.As<VARIANT>()[i]));
      continue;
    }
    VARIANT element;
    element.vt = static_cast<VARTYPE>(type | VT_BYREF);
    element.byref = access.As<std::uint8_t>() + i * SafeArrayGetElemsize(plain.parray);
    elements.push_back(Value::CopyOf(element));
  }
  return elements;
}

namespace {

struct AddToBlock {
  platform::RowBlock& block;

  void operator()(platform::Empty) const { block.Add(platform::Null()); }
  void operator()(platform::Missing) const { block.Add(platform::Null()); }
  void operator()(const std::shared_ptr<platform::Object>&) const { block.Add(platform::Null()); }
  void operator()(const std::string& v) const { block.Add(std::string_view(v)); }
  void operator()(const std::vector<std::uint8_t>& v) const {
    block.Add(std::as_bytes(std::span(v)));
  }
  template <class Plain>
  void operator()(Plain v) const {
    block.Add(v);
  }
};

}  // namespace

platform::RowBlock RowsOf(const VARIANT& given) {
  if (given.vt & VT_BYREF) return RowsOf(Value::CopyOf(given).get());
  const VARIANT& plain = given;  // a block may be large: no copy
  if (plain.vt != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(plain.parray) != 2) {
    Require(DISP_E_TYPEMISMATCH);
  }
  const ArrayAccess access(plain.parray);
  const std::size_t fields = access.Count(1), rows = access.Count(2);
  platform::RowBlock block(fields);
  block.Reserve(rows);
  for (std::size_t i = 0; i < fields * rows; ++i) {
    std::visit(AddToBlock{block}, ToVariant(access.As<VARIANT>()[i]).storage());
  }
  return block;
}

}  // namespace com
