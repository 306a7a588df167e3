// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "com/ole.h"
#include "com/reference.h"
#include "platform/row_block.h"
#include "platform/variant.h"

namespace com {

// UTF-16 of UTF-8 and back; what is not well formed becomes U+FFFD. U+0000 stays.
std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view wide);
// A text of Automation for the caller, who frees it. Raises std::bad_alloc.
BSTR NewText(std::string_view utf8);
// The text; "" for null.
std::string TextOf(BSTR text);

// An Automation value that owns what it holds.
class Value {
  struct OfType {
    VARTYPE type;
  };

 public:
  Value() { VariantInit(&value_); }
  explicit Value(bool v) : Value(OfType{VT_BOOL}) {
    value_.boolVal = v ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Value(std::int32_t v) : Value(OfType{VT_I4}) { value_.lVal = v; }
  explicit Value(double v) : Value(OfType{VT_R8}) { value_.dblVal = v; }
  explicit Value(std::string_view text) : Value() {
    value_.bstrVal = NewText(text);
    value_.vt = VT_BSTR;
  }
  explicit Value(const char* text) : Value(std::string_view(text)) {}
  explicit Value(const std::string& text) : Value(std::string_view(text)) {}
  // Adds a reference.
  explicit Value(IDispatch* object) : Value(OfType{VT_DISPATCH}) {
    value_.pdispVal = object;
    if (object) object->AddRef();
  }
  template <class T>
  explicit Value(const Reference<T>& object) : Value(static_cast<IDispatch*>(object.get())) {}
  // What a platform value is in Automation. A platform object is the object of the host that it
  // stands for, if it stands for one, otherwise Nothing.
  explicit Value(const platform::Variant& value);
  Value(const Value& other) : Value() { Copy(other.value_); }
  Value(Value&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Value& operator=(Value other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Value() { VariantClear(&value_); }

  static Value Null() { return Value(OfType{VT_NULL}); }
  // An optional argument that is left out.
  static Value Missing() {
    Value result(OfType{VT_ERROR});
    result.value_.scode = DISP_E_PARAMNOTFOUND;
    return result;
  }
  // A copy of somebody else's value, what it refers to instead of the reference.
  static Value CopyOf(const VARIANT& value);
  // A reference to a value of the caller's, who keeps it alive.
  static Value ByReference(Value& referred);
  // A list of texts, as an array of variants.
  static Value List(const std::vector<std::string>& texts);
  // The values as a one-dimensional array.
  static Value Array(std::vector<Value> values);
  // Two dimensions: fields, rows.
  static Value Rows(const platform::RowBlock& rows);

  const VARIANT& get() const { return value_; }
  // Where a function puts a result. REQUIRES: empty.
  VARIANT* Out() { return &value_; }
  // Gives the value to the caller.
  void MoveTo(VARIANT& target) {
    target = value_;
    VariantInit(&value_);
  }

  bool IsObject() const { return value_.vt == VT_DISPATCH || value_.vt == VT_UNKNOWN; }
  // The object with IDispatch; null when this is none.
  Reference<IDispatch> Object() const;
  platform::Variant ToVariant() const;
  std::int32_t ToLong() const { return ToVariant().ToLong(); }
  std::string ToText() const { return ToVariant().ToText(); }
  bool ToBool() const { return ToVariant().ToBool(); }

 private:
  explicit Value(OfType given) {
    VariantInit(&value_);
    value_.vt = given.type;
  }
  void Copy(const VARIANT& other);

  VARIANT value_;
};

// An object of a host that crosses the platform interfaces.
class HostObject : public platform::Object {
 public:
  explicit HostObject(Reference<IDispatch> object) : object_(std::move(object)) {}
  const Reference<IDispatch>& object() const { return object_; }

 private:
  Reference<IDispatch> object_;
};

// The platform's value of an Automation value. Numbers that do not fit 32 bits become doubles, an
// array of bytes bytes, an object a HostObject. Raises DISP_E_TYPEMISMATCH for other arrays.
platform::Variant ToVariant(const VARIANT& value);
// The elements of a one-dimensional array; a single value is a list of one, nothing an empty list.
std::vector<Value> ElementsOf(const VARIANT& value);
// The rows of a two-dimensional array (fields, rows).
platform::RowBlock RowsOf(const VARIANT& value);

}  // namespace com
