// SPDX-License-Identifier: MIT
// Objects of ours that hosts and scripts drive by name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "com/failure.h"
#include "com/module.h"
#include "com/ole.h"
#include "com/reference.h"
#include "com/value.h"

namespace com {

// The arguments of a call, in the caller's order; those at the end may be left out.
class Arguments {
 public:
  explicit Arguments(const DISPPARAMS& given) : given_(given) {}

  std::size_t size() const { return given_.cArgs; }
  // Whether the caller gave it.
  bool Has(std::size_t place) const;
  // The value; Missing when it was left out.
  platform::Variant At(std::size_t place) const;
  // As it was passed; an empty value when it was left out.
  const VARIANT& Raw(std::size_t place) const;
  // Raises DISP_E_PARAMNOTOPTIONAL when the caller gave fewer.
  void Demand(std::size_t count) const;
  std::string Text(std::size_t place, std::string_view otherwise = {}) const;
  std::int32_t Long(std::size_t place, std::int32_t otherwise = 0) const;
  Reference<IDispatch> Object(std::size_t place) const;
  // Gives a value back through an argument that was passed by reference; nothing otherwise.
  void Return(std::size_t place, const Value& value) const;

 private:
  const DISPPARAMS& given_;
};

// Letter case does not count.
bool SameMemberName(std::wstring_view a, std::wstring_view b);

// Base of the objects: counts references, finds members by name, turns failures into results. An
// object belongs to the thread that made it.
class AutomationObject : public IDispatch {
 public:
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, OLECHAR** names, UINT count, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* details, UINT* wrong_argument) override;

 protected:
  AutomationObject() = default;
  virtual ~AutomationObject() = default;

 private:
  // Place of the member; MemberCount() when there is none. The first is the default member.
  virtual std::size_t FindMember(std::wstring_view name) const = 0;
  virtual std::size_t MemberCount() const = 0;
  virtual Value Get(std::size_t member, const Arguments& arguments) = 0;
  // The value to be put is the last argument.
  virtual void Put(std::size_t member, const Arguments& arguments) = 0;
  virtual std::vector<Value> Elements();
  virtual const wchar_t* ClassName() const = 0;

  Value Perform(DISPID id, WORD flags, const DISPPARAMS& given);

  ULONG references_ = 1;
  const DWORD thread_ = GetCurrentThreadId();
  AliveInModule alive_;
};

// A row of a class's table of members.
template <class Self>
struct Member {
  const wchar_t* name;
  Value (Self::*get)(const Arguments&);           // property or method
  void (Self::*put)(const Arguments&) = nullptr;  // null: read only
};

// A class has kMembers, an array of Member<Self>; the first is its default member.
template <class Self>
class Automation : public AutomationObject {
 private:
  std::size_t MemberCount() const override { return std::size(Self::kMembers); }
  std::size_t FindMember(std::wstring_view name) const override {
    for (std::size_t i = 0; i < std::size(Self::kMembers); ++i) {
      if (SameMemberName(Self::kMembers[i].name, name)) return i;
    }
    return std::size(Self::kMembers);
  }
  Value Get(std::size_t member, const Arguments& arguments) override {
    return (static_cast<Self*>(this)->*Self::kMembers[member].get)(arguments);
  }
  void Put(std::size_t member, const Arguments& arguments) override {
    const auto put = Self::kMembers[member].put;
    if (!put) Require(DISP_E_MEMBERNOTFOUND);
    (static_cast<Self*>(this)->*put)(arguments);
  }
  const wchar_t* ClassName() const override { return Self::kClassName; }
};

}  // namespace com
