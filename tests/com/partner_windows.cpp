// SPDX-License-Identifier: MIT
#include "tests/com/partner_windows.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "com/command_object.h"
#include "com/connection_object.h"
#include "com/recordset_object.h"
#include "com/value.h"

namespace com_tests {

namespace {

using com::Reference;
using com::Value;

class Wrapper;
std::set<const IUnknown*>& Wrappers() {
  static std::set<const IUnknown*> wrappers;
  return wrappers;
}

class Wrapper final : public IDispatch {
 public:
  Wrapper(Partner& partner, Reference<IDispatch> object)
      : partner_(partner), object_(std::move(object)) {
    Wrappers().insert(this);
  }
  virtual ~Wrapper() { Wrappers().erase(this); }
  Wrapper(const Wrapper&) = delete;
  Wrapper& operator=(const Wrapper&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDispatch)) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID id, OLECHAR** names, UINT count, LCID locale,
                             DISPID* ids) override {
    const HRESULT result = object_->GetIDsOfNames(id, names, count, locale, ids);
    if (SUCCEEDED(result)) names_[*ids] = names[0];
    return result;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID interface_id, LCID locale, WORD flags, DISPPARAMS* given,
                      VARIANT* result, EXCEPINFO* details, UINT* wrong) override {
    if (partner_.Fails()) return Raise(*details, partner_.failure, Partner::kWords);
    const std::wstring& name = names_[id];
    const bool is_put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (partner_.is_strict && (name == L"EditMode" || name == L"Find") && !IsOnRow()) {
      return Raise(*details, com::ResultOf(platform::kErrNoCurrentRecord), "No row.");
    }
    if (partner_.is_strict && !is_put && (name == L"AbsolutePosition" || name == L"RecordCount")) {
      Value(-1).MoveTo(*result);
      return S_OK;
    }
    std::vector<VARIANT> arguments(given->rgvarg, given->rgvarg + given->cArgs);
    for (VARIANT& argument : arguments) {
      if (argument.vt == VT_DISPATCH && Wrappers().contains(argument.pdispVal)) {
        argument.pdispVal = static_cast<Wrapper*>(argument.pdispVal)->object_.get();
      }
    }
    DISPPARAMS own = *given;
    own.rgvarg = arguments.data();
    const HRESULT answer =
        object_->Invoke(id, interface_id, locale, flags, &own, result, details, wrong);
    if (SUCCEEDED(answer) && result && result->vt == VT_DISPATCH && result->pdispVal) {
      result->pdispVal = new Wrapper(partner_, Reference<IDispatch>::Take(result->pdispVal));
    }
    return answer;
  }

 private:
  static HRESULT Raise(EXCEPINFO& details, long number, const char* words) {
    details = {};
    details.scode = static_cast<SCODE>(number);
    details.bstrDescription = com::NewText(words);
    return DISP_E_EXCEPTION;
  }
  // Of a recordset.
  bool IsOnRow() const {
    const com::LateBound rows(object_);
    if (rows.Get(L"EditMode").ToLong() == 2) return true;  // a new row
    return !rows.Get(L"BOF").ToBool() && !rows.Get(L"EOF").ToBool();
  }

  ULONG references_ = 1;
  Partner& partner_;
  Reference<IDispatch> object_;
  std::map<DISPID, std::wstring> names_;
};

}  // namespace

int WrappersAlive() { return static_cast<int>(Wrappers().size()); }

bool Partner::Fails() {
  ++calls_;
  const bool fails = fail_from_ > 0 && calls_ >= fail_from_ && calls_ - fail_from_ < fail_count_;
  fired_ = fired_ || fails;
  return fails;
}

com::AdoObjects Partner::Objects() {
  const auto make = [self = shared_from_this()](const std::string& kind) {
    Reference<IDispatch> object;
    if (kind == "Connection") {
      object = Reference<IDispatch>::Take(new com::ConnectionObject(self->make_()));
    } else if (kind == "Recordset") {
      object = Reference<IDispatch>::Take(new com::RecordsetObject);
    } else {
      object = Reference<IDispatch>::Take(new com::CommandObject);
    }
    return com::LateBound(Reference<IDispatch>::Take(new Wrapper(*self, std::move(object))));
  };
  return {make, "Jet of the test"};
}

}  // namespace com_tests
