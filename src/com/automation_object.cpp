// SPDX-License-Identifier: MIT
#include "com/automation_object.h"

#include "com/value_list.h"

namespace com {

bool SameMemberName(std::wstring_view a, std::wstring_view b) {
  return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                              static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

bool Arguments::Has(std::size_t place) const { return place < size() && !At(place).IsMissing(); }

const VARIANT& Arguments::Raw(std::size_t place) const {
  static const VARIANT kNothing = [] {
    VARIANT nothing;
    VariantInit(&nothing);
    return nothing;
  }();
  return place < size() ? given_.rgvarg[size() - 1 - place] : kNothing;
}

platform::Variant Arguments::At(std::size_t place) const {
  if (place >= size()) return platform::Missing();
  const VARIANT& value = Raw(place);
  // What is an array for one member is nothing that another could take.
  if ((value.vt & VT_ARRAY) && (value.vt & VT_TYPEMASK) != VT_UI1) return {};
  return ToVariant(value);
}

void Arguments::Demand(std::size_t count) const {
  for (std::size_t place = 0; place < count; ++place) {
    if (!Has(place)) Require(DISP_E_PARAMNOTOPTIONAL);
  }
}

std::string Arguments::Text(std::size_t place, std::string_view otherwise) const {
  return Has(place) ? At(place).ToText() : std::string(otherwise);
}

std::int32_t Arguments::Long(std::size_t place, std::int32_t otherwise) const {
  return Has(place) ? At(place).ToLong() : otherwise;
}

Reference<IDispatch> Arguments::Object(std::size_t place) const {
  return Value::CopyOf(Raw(place)).Object();
}

void Arguments::Return(std::size_t place, const Value& value) const {
  const VARIANT& target = Raw(place);
  if (!(target.vt & VT_BYREF)) return;
  if (target.vt == (VT_BYREF | VT_VARIANT)) {
    Require(VariantCopy(target.pvarVal, Plain(value.get())));
    return;
  }
  Value fitting;
  const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
  Require(VariantChangeType(fitting.Out(), Plain(value.get()), 0, type));
  VARIANT given;
  fitting.MoveTo(given);
  switch (type) {
    case VT_I2:
      *target.piVal = given.iVal;
      break;
    case VT_I4:
      *target.plVal = given.lVal;
      break;
    case VT_BOOL:
      *target.pboolVal = given.boolVal;
      break;
    case VT_BSTR:
      SysFreeString(*target.pbstrVal);
      *target.pbstrVal = given.bstrVal;
      break;
    default:
      VariantClear(&given);
      Require(DISP_E_TYPEMISMATCH);
  }
}

STDMETHODIMP AutomationObject::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDispatch)) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) AutomationObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP AutomationObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP AutomationObject::GetIDsOfNames(REFIID, OLECHAR** names, UINT count, LCID,
                                             DISPID* ids) {
  if (!names || !ids) return E_POINTER;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  if (count == 0) return S_OK;
  const std::size_t member = FindMember(names[0]);
  if (member == MemberCount()) return DISP_E_UNKNOWNNAME;
  ids[0] = static_cast<DISPID>(member + 1);
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
}

std::vector<Value> AutomationObject::Elements() {
  Require(DISP_E_MEMBERNOTFOUND);
  return {};
}

Value AutomationObject::Perform(DISPID id, WORD flags, const DISPPARAMS& given) {
  if (id == DISPID_NEWENUM) return MakeEnumerator(Elements());
  const std::size_t member = id == DISPID_VALUE ? 0 : static_cast<std::size_t>(id) - 1;
  if (id < DISPID_VALUE || member >= MemberCount()) Require(DISP_E_MEMBERNOTFOUND);
  const Arguments arguments(given);
  if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
    if (arguments.size() == 0) Require(DISP_E_BADPARAMCOUNT);
    Put(member, arguments);
    return {};
  }
  if (given.cNamedArgs != 0) Require(DISP_E_NONAMEDARGS);
  return Get(member, arguments);
}

STDMETHODIMP AutomationObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given,
                                      VARIANT* result, EXCEPINFO* details, UINT*) {
  if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  if (!given) return E_POINTER;
  const auto kept = Reference<AutomationObject>::Share(this);  // a call may let the last one go
  return Guarded(
      [&] {
        Value answer = Perform(id, flags, *given);
        if (result) answer.MoveTo(*result);
        return S_OK;
      },
      details, ClassName());
}

}  // namespace com
