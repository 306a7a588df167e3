// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "com/ole.h"
#include "com/reference.h"
#include "com/value.h"

namespace com {

// An object of a host, driven by the names of its members, so that a host with other dispatch
// numbers or of another make will do. Failures are com::Failure with the object's own words.
class LateBound {
 public:
  using Arguments = std::vector<Value>;

  LateBound() = default;  // no object
  explicit LateBound(Reference<IDispatch> object);

  explicit operator bool() const { return static_cast<bool>(object_); }
  const Reference<IDispatch>& object() const { return object_; }
  // False also when the object cannot be asked.
  bool Has(const wchar_t* name) const;
  // A property, or a method's result.
  Value Get(const wchar_t* name, Arguments arguments = {}) const;
  // The object of a property; none when it has another value.
  LateBound Object(const wchar_t* name, Arguments arguments = {}) const;
  void Put(const wchar_t* name, Value value) const;
  void PutObject(const wchar_t* name, const LateBound& value) const;
  // A call whose arguments come back changed.
  Value CallByReference(const wchar_t* name, Arguments& arguments) const;
  // The elements of a collection, as "For Each" walks it.
  std::vector<LateBound> Elements() const;

 private:
  DISPID Find(const wchar_t* name) const;
  DISPID Require(const wchar_t* name) const;
  Value Invoke(DISPID id, WORD flags, const std::vector<VARIANT>& reversed) const;

  Reference<IDispatch> object_;
  Reference<IDispatchEx> extended_;  // some have names only by this
  mutable std::map<std::wstring, DISPID> ids_;
};

// A new object of a registered class. Raises Failure when there is none.
LateBound CreateByName(const std::string& prog_id);

}  // namespace com
