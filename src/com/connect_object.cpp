// SPDX-License-Identifier: MIT
#include "com/connect_object.h"

#include <utility>

#include "com/automation_object.h"
#include "com/failure.h"
#include "com/type_library.h"
#include "com/value.h"

namespace com {

namespace {

Reference<ITypeInfo> EventsInfo() {
  Reference<ITypeInfo> info;
  Require(LoadLibraryOfModule()->GetTypeInfoOfGuid(IID_COV4Extensibility, info.Out()));
  return info;
}

// A text that a call borrows.
class OwnText {
 public:
  explicit OwnText(const std::string& text) : text_(NewText(text)) {}
  OwnText(const OwnText&) = delete;
  OwnText& operator=(const OwnText&) = delete;
  ~OwnText() { SysFreeString(text_); }
  BSTR get() const { return text_; }

 private:
  BSTR text_;
};

constexpr ULONG kDying = 0x40000000;

SHORT Short(const Arguments& arguments, std::size_t place) {
  return static_cast<SHORT>(arguments.Long(place));
}

}  // namespace

ConnectObject::~ConnectObject() { Stop(); }

STDMETHODIMP ConnectObject::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IDispatch) &&
      !IsEqualIID(id, IID_COV4Extensibility)) {
    return E_NOINTERFACE;
  }
  *object = static_cast<COV4Extensibility*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ConnectObject::Release() {
  const ULONG left = --references_;
  if (left == 0) {
    references_ = kDying;  // the studio may take and drop references while the add-in ends
    delete this;
  }
  return left;
}

STDMETHODIMP ConnectObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP ConnectObject::GetTypeInfo(UINT number, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (number != 0) return DISP_E_BADINDEX;
  return Guarded([&] {
    *info = EventsInfo().Release();
    return S_OK;
  });
}

STDMETHODIMP ConnectObject::GetIDsOfNames(REFIID, OLECHAR** names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids) return E_POINTER;
  return Guarded([&] { return EventsInfo()->GetIDsOfNames(names, count, ids); });
}

STDMETHODIMP ConnectObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given,
                                   VARIANT* result, EXCEPINFO* details, UINT*) {
  if (!given) return E_POINTER;
  if (given->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  if (!(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
  static constexpr UINT kCounts[] = {4, 0, 0, 0, 3, 3, 3, 3, 7, 7, 7, 5, 4, 5};
  if (id < 1 || id > static_cast<DISPID>(std::size(kCounts))) return DISP_E_MEMBERNOTFOUND;
  if (given->cArgs != kCounts[id - 1]) return DISP_E_BADPARAMCOUNT;
  return Guarded(
      [&] {
        const Arguments arguments(*given);
        LONG answer = 0;
        const OwnText first(arguments.Text(0)), second(arguments.Text(1)), third(arguments.Text(2));
        SHORT key = Short(arguments, 3), shift = Short(arguments, 4);
        const auto x = static_cast<FLOAT>(arguments.At(5).ToDouble());
        const auto y = static_cast<FLOAT>(arguments.At(6).ToDouble());
        HRESULT outcome = S_OK;
        switch (id) {
          case 1:
            outcome = Initialize(first.get(), second.get(), arguments.Object(2).get(),
                                 arguments.Object(3).get(), &answer);
            break;
          case 2:
            outcome = StartupComplete(&answer);
            break;
          case 3:
            outcome = Deactivate(&answer);
            break;
          case 4:
            outcome = Terminate(&answer);
            break;
          case 5:
            outcome = GetMessage(first.get(), second.get(), arguments.Raw(2), &answer);
            break;
          case 6:
            outcome = NodeClick(first.get(), second.get(), third.get(), &answer);
            break;
          case 7:
            outcome = NodeDblClick(first.get(), second.get(), third.get(), &answer);
            break;
          case 8:
            outcome = NodeExpand(first.get(), second.get(), third.get(), &answer);
            break;
          case 9:
            outcome =
                NodeMouseDown(first.get(), second.get(), third.get(), key, shift, x, y, &answer);
            break;
          case 10:
            outcome =
                NodeMouseMove(first.get(), second.get(), third.get(), key, shift, x, y, &answer);
            break;
          case 11:
            outcome =
                NodeMouseUp(first.get(), second.get(), third.get(), key, shift, x, y, &answer);
            break;
          case 12:
            outcome = NodeKeyDown(first.get(), second.get(), third.get(), &key, &shift, &answer);
            break;
          case 13:
            outcome = NodeKeyPress(first.get(), second.get(), third.get(), &key, &answer);
            break;
          default:
            outcome = NodeKeyUp(first.get(), second.get(), third.get(), &key, &shift, &answer);
        }
        if (id >= 12) arguments.Return(3, Value(static_cast<std::int32_t>(key)));
        if (id == 12 || id == 14) arguments.Return(4, Value(static_cast<std::int32_t>(shift)));
        if (result) Value(static_cast<std::int32_t>(answer)).MoveTo(*result);
        return outcome;
      },
      details, L"OVFormulaEditor.Connect");
}

// --- Events ---

template <class Send>
HRESULT ConnectObject::Event(LONG* result, const Send& send) {
  if (!result) return E_POINTER;
  *result = 0;
  if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  const auto kept = Reference<ConnectObject>::Share(this);
  const std::shared_ptr<platform::COV4Extensibility> add_in = add_in_;  // Terminate may come inside
  if (!add_in) return S_OK;
  Guarded([&] {
    send(*add_in);
    return S_OK;
  });
  return S_OK;
}

void ConnectObject::Stop() {
  const std::shared_ptr<platform::COV4Extensibility> add_in = std::move(add_in_);
  add_in_.reset();
  if (!add_in) return;
  Guarded([&] {
    add_in->Terminate();
    return S_OK;
  });
}

STDMETHODIMP ConnectObject::Initialize(BSTR project, BSTR vb_project, IDispatch* add_in,
                                       IDispatch* any, LONG* result) {
  if (!result) return E_POINTER;
  *result = 0;
  if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  const auto kept = Reference<ConnectObject>::Share(this);
  Stop();  // a studio that sends it again starts over
  if (!add_in) return S_OK;
  Guarded([&] {
    const Given given = {TextOf(project), LateBound(Reference<IDispatch>::Share(add_in)),
                         LateBound(Reference<IDispatch>::Share(any))};
    add_in_ = make_(given);
    const auto started = add_in_;
    started->Initialize(given.project, TextOf(vb_project), nullptr, nullptr);
    return S_OK;
  });
  return S_OK;
}

STDMETHODIMP ConnectObject::StartupComplete(LONG* result) {
  return Event(result, [](auto& add_in) { add_in.StartupComplete(); });
}

STDMETHODIMP ConnectObject::Deactivate(LONG* result) {
  return Event(result, [](auto& add_in) { add_in.Deactivate(); });
}

STDMETHODIMP ConnectObject::Terminate(LONG* result) {
  if (!result) return E_POINTER;
  *result = 0;
  if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
  const auto kept = Reference<ConnectObject>::Share(this);
  Stop();
  return S_OK;
}

STDMETHODIMP ConnectObject::GetMessage(BSTR sender, BSTR message, VARIANT params, LONG* result) {
  return Event(result, [&](auto& add_in) {
    add_in.GetMessage(TextOf(sender), TextOf(message), ToVariant(params));
  });
}

STDMETHODIMP ConnectObject::NodeClick(BSTR project, BSTR key, BSTR text, LONG* result) {
  return Event(result,
               [&](auto& add_in) { add_in.NodeClick(TextOf(project), TextOf(key), TextOf(text)); });
}

STDMETHODIMP ConnectObject::NodeDblClick(BSTR project, BSTR key, BSTR text, LONG* result) {
  return Event(result, [&](auto& add_in) {
    add_in.NodeDblClick(TextOf(project), TextOf(key), TextOf(text));
  });
}

STDMETHODIMP ConnectObject::NodeExpand(BSTR project, BSTR key, BSTR text, LONG* result) {
  return Event(
      result, [&](auto& add_in) { add_in.NodeExpand(TextOf(project), TextOf(key), TextOf(text)); });
}

STDMETHODIMP ConnectObject::NodeMouseDown(BSTR project, BSTR key, BSTR text, SHORT button,
                                          SHORT shift, FLOAT x, FLOAT y, LONG* result) {
  return Event(result, [&](auto& add_in) {
    add_in.NodeMouseDown(TextOf(project), TextOf(key), TextOf(text), button, shift, x, y);
  });
}

STDMETHODIMP ConnectObject::NodeMouseMove(BSTR project, BSTR key, BSTR text, SHORT button,
                                          SHORT shift, FLOAT x, FLOAT y, LONG* result) {
  return Event(result, [&](auto& add_in) {
    add_in.NodeMouseMove(TextOf(project), TextOf(key), TextOf(text), button, shift, x, y);
  });
}

STDMETHODIMP ConnectObject::NodeMouseUp(BSTR project, BSTR key, BSTR text, SHORT button,
                                        SHORT shift, FLOAT x, FLOAT y, LONG* result) {
  return Event(result, [&](auto& add_in) {
    add_in.NodeMouseUp(TextOf(project), TextOf(key), TextOf(text), button, shift, x, y);
  });
}

STDMETHODIMP ConnectObject::NodeKeyDown(BSTR project, BSTR key, BSTR text, SHORT* key_code,
                                        SHORT* shift, LONG* result) {
  if (!key_code || !shift) return E_POINTER;
  return Event(result, [&](auto& add_in) {
    add_in.NodeKeyDown(TextOf(project), TextOf(key), TextOf(text), *key_code, *shift);
  });
}

STDMETHODIMP ConnectObject::NodeKeyPress(BSTR project, BSTR key, BSTR text, SHORT* key_ascii,
                                         LONG* result) {
  if (!key_ascii) return E_POINTER;
  return Event(result, [&](auto& add_in) {
    add_in.NodeKeyPress(TextOf(project), TextOf(key), TextOf(text), *key_ascii);
  });
}

STDMETHODIMP ConnectObject::NodeKeyUp(BSTR project, BSTR key, BSTR text, SHORT* key_code,
                                      SHORT* shift, LONG* result) {
  if (!key_code || !shift) return E_POINTER;
  return Event(result, [&](auto& add_in) {
    add_in.NodeKeyUp(TextOf(project), TextOf(key), TextOf(text), *key_code, *shift);
  });
}

}  // namespace com
