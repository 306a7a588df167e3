// SPDX-License-Identifier: MIT
#include "com/late_bound.h"

#include <utility>

#include "com/failure.h"

namespace com {

namespace {

// As IDispatch takes them: the last one first. The values stay with the caller.
std::vector<VARIANT> Reversed(const LateBound::Arguments& arguments) {
  std::vector<VARIANT> reversed;
  reversed.reserve(arguments.size());
  for (auto value = arguments.rbegin(); value != arguments.rend(); ++value) {
    reversed.push_back(value->get());
  }
  return reversed;
}

// What an object raised, freed when the call has been judged.
class Raised {
 public:
  Raised() = default;
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() {
    SysFreeString(details.bstrSource);
    SysFreeString(details.bstrDescription);
    SysFreeString(details.bstrHelpFile);
  }

  void Judge(HRESULT result) {
    if (SUCCEEDED(result)) return;
    if (result != DISP_E_EXCEPTION) com::Require(result);
    if (details.pfnDeferredFillIn) details.pfnDeferredFillIn(&details);
    const HRESULT own = details.scode ? details.scode : ResultOf(details.wCode);
    throw Failure(FAILED(own) ? own : E_FAIL, TextOf(details.bstrDescription));
  }

  EXCEPINFO details = {};
};

}  // namespace

LateBound::LateBound(Reference<IDispatch> object)
    : object_(std::move(object)), extended_(object_.As<IDispatchEx>()) {}

DISPID LateBound::Find(const wchar_t* name) const {
  if (!object_) com::Require(E_POINTER);
  const auto known = ids_.find(name);
  if (known != ids_.end()) return known->second;
  DISPID id = DISPID_UNKNOWN;
  std::wstring written = name;
  OLECHAR* text = written.data();
  HRESULT result = object_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(result) && extended_) {
    BSTR own = SysAllocString(name);
    result = extended_->GetDispID(own, fdexNameCaseInsensitive, &id);
    SysFreeString(own);
  }
  // A connection that is gone is no missing name.
  if (FAILED(result) && result != DISP_E_UNKNOWNNAME && result != E_NOTIMPL) com::Require(result);
  if (FAILED(result)) id = DISPID_UNKNOWN;
  ids_[name] = id;
  return id;
}

DISPID LateBound::Require(const wchar_t* name) const {
  const DISPID id = Find(name);
  if (id == DISPID_UNKNOWN) throw Failure(DISP_E_UNKNOWNNAME, Utf8(name));
  return id;
}

bool LateBound::Has(const wchar_t* name) const try {
  return object_ && Find(name) != DISPID_UNKNOWN;
} catch (const Failure&) {
  return false;
}

Value LateBound::Invoke(DISPID id, WORD flags, const std::vector<VARIANT>& reversed) const {
  DISPID put = DISPID_PROPERTYPUT;
  const bool is_put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS given = {const_cast<VARIANT*>(reversed.data()), is_put ? &put : nullptr,
                      static_cast<UINT>(reversed.size()), is_put ? 1u : 0u};
  Value result;
  Raised raised;
  VARIANT* answer = is_put ? nullptr : result.Out();
  const Reference<IDispatch> kept = object_;  // the host may let go of it meanwhile
  if (extended_) {
    raised.Judge(extended_->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &given, answer,
                                     &raised.details, nullptr));
  } else {
    UINT wrong = 0;
    raised.Judge(kept->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &given, answer,
                              &raised.details, &wrong));
  }
  return result;
}

Value LateBound::Get(const wchar_t* name, Arguments arguments) const {
  return Invoke(Require(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, Reversed(arguments));
}

LateBound LateBound::Object(const wchar_t* name, Arguments arguments) const {
  return LateBound(Get(name, std::move(arguments)).Object());
}

void LateBound::Put(const wchar_t* name, Value value) const {
  Invoke(Require(name), DISPATCH_PROPERTYPUT, {value.get()});
}

void LateBound::PutObject(const wchar_t* name, const LateBound& value) const {
  Invoke(Require(name), DISPATCH_PROPERTYPUTREF, {Value(value.object()).get()});
}

Value LateBound::CallByReference(const wchar_t* name, Arguments& arguments) const {
  std::vector<VARIANT> references;
  for (auto value = arguments.rbegin(); value != arguments.rend(); ++value) {
    references.push_back(Value::ByReference(*value).get());
  }
  try {
    return Invoke(Require(name), DISPATCH_METHOD, references);
  } catch (const Failure& failure) {
    if (failure.result() != DISP_E_TYPEMISMATCH) throw;
  }
  // Parameters of a type of their own want references to that type.
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    VARIANT& referred = *arguments[arguments.size() - 1 - i].Out();
    references[i].vt = static_cast<VARTYPE>(referred.vt | VT_BYREF);
    references[i].byref = &referred.llVal;
  }
  return Invoke(Require(name), DISPATCH_METHOD, references);
}

std::vector<LateBound> LateBound::Elements() const {
  std::vector<LateBound> elements;
  const Value walker =
      Invoke(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::vector<VARIANT>());
  if (!walker.IsObject()) com::Require(E_NOINTERFACE);
  const auto values = Reference<IUnknown>::Share(walker.get().punkVal).As<IEnumVARIANT>();
  if (!values) com::Require(E_NOINTERFACE);
  for (;;) {
    Value next;
    ULONG fetched = 0;
    com::Require(values->Next(1, next.Out(), &fetched));
    if (fetched == 0) return elements;
    elements.emplace_back(next.Object());
  }
}

LateBound CreateByName(const std::string& prog_id) {
  CLSID id;
  Require(CLSIDFromProgID(Wide(prog_id).c_str(), &id));
  void* created = nullptr;
  Require(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                           &created));
  return LateBound(Reference<IDispatch>::Take(static_cast<IDispatch*>(created)));
}

}  // namespace com
