// SPDX-License-Identifier: MIT
#include "com/value_list.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "com/failure.h"
#include "com/module.h"

namespace com {

namespace {

class Enumerator final : public IEnumVARIANT {
 public:
  Enumerator(std::shared_ptr<const std::vector<Value>> values, std::size_t next)
      : values_(std::move(values)), next_(next) {}
  virtual ~Enumerator() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IEnumVARIANT)) return E_NOINTERFACE;
    *object = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override {
    if (!values || (count != 1 && !fetched)) return E_POINTER;
    return Guarded([&] {
      ULONG given = 0;
      for (; given < count && next_ < values_->size(); ++given) {
        Value((*values_)[next_++]).MoveTo(values[given]);
      }
      if (fetched) *fetched = given;
      return given == count ? S_OK : S_FALSE;
    });
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t left = values_->size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    next_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(IEnumVARIANT** clone) override {
    if (!clone) return E_POINTER;
    return Guarded([&] {
      *clone = new Enumerator(values_, next_);
      return S_OK;
    });
  }

 private:
  ULONG references_ = 1;
  std::shared_ptr<const std::vector<Value>> values_;
  std::size_t next_;
  AliveInModule alive_;
};

}  // namespace

Value MakeEnumerator(std::vector<Value> values) {
  Value result;
  result.Out()->punkVal =
      new Enumerator(std::make_shared<const std::vector<Value>>(std::move(values)), 0);
  result.Out()->vt = VT_UNKNOWN;
  return result;
}

}  // namespace com
