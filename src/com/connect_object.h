// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "com/late_bound.h"
#include "com/library.h"
#include "com/module.h"
#include "platform/studio.h"

namespace com {

// OVFormulaEditor.Connect: the class that the studio creates. What the add-in is made of is made at
// Initialize, when studio and environment are known, and gone after Terminate. Every event returns
// 0; no failure leaves one. Events before, behind and between are survived.
class ConnectObject final : public COV4Extensibility {
 public:
  // What the studio hands over.
  struct Given {
    std::string project;
    LateBound studio;
    LateBound environment;
  };
  // Makes the add-in, not yet initialized. Raises what keeps it from running.
  using MakeAddIn = std::unique_ptr<platform::COV4Extensibility> (*)(const Given& given);

  explicit ConnectObject(MakeAddIn make) : make_(make) {}
  virtual ~ConnectObject();
  ConnectObject(const ConnectObject&) = delete;
  ConnectObject& operator=(const ConnectObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT number, LCID, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID, OLECHAR** names, UINT count, LCID, DISPID* ids) override;
  // Takes what can be converted where a number or text is wanted: scripts pass references to
  // variants where the interface has references to integers.
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* details, UINT*) override;

  STDMETHODIMP Initialize(BSTR project, BSTR vb_project, IDispatch* add_in, IDispatch* any,
                          LONG* result) override;
  STDMETHODIMP StartupComplete(LONG* result) override;
  STDMETHODIMP Deactivate(LONG* result) override;
  STDMETHODIMP Terminate(LONG* result) override;
  STDMETHODIMP GetMessage(BSTR sender, BSTR message, VARIANT params, LONG* result) override;
  STDMETHODIMP NodeClick(BSTR project, BSTR key, BSTR text, LONG* result) override;
  STDMETHODIMP NodeDblClick(BSTR project, BSTR key, BSTR text, LONG* result) override;
  STDMETHODIMP NodeExpand(BSTR project, BSTR key, BSTR text, LONG* result) override;
  STDMETHODIMP NodeMouseDown(BSTR project, BSTR key, BSTR text, SHORT button, SHORT shift, FLOAT x,
                             FLOAT y, LONG* result) override;
  STDMETHODIMP NodeMouseMove(BSTR project, BSTR key, BSTR text, SHORT button, SHORT shift, FLOAT x,
                             FLOAT y, LONG* result) override;
  STDMETHODIMP NodeMouseUp(BSTR project, BSTR key, BSTR text, SHORT button, SHORT shift, FLOAT x,
                           FLOAT y, LONG* result) override;
  STDMETHODIMP NodeKeyDown(BSTR project, BSTR key, BSTR text, SHORT* key_code, SHORT* shift,
                           LONG* result) override;
  STDMETHODIMP NodeKeyPress(BSTR project, BSTR key, BSTR text, SHORT* key_ascii,
                            LONG* result) override;
  STDMETHODIMP NodeKeyUp(BSTR project, BSTR key, BSTR text, SHORT* key_code, SHORT* shift,
                         LONG* result) override;

 private:
  // Sends an event to the add-in, if there is one.
  template <class Send>
  HRESULT Event(LONG* result, const Send& send);
  void Stop();

  MakeAddIn make_;
  std::shared_ptr<platform::COV4Extensibility> add_in_;
  ULONG references_ = 1;
  const DWORD thread_ = GetCurrentThreadId();
  AliveInModule alive_;
};

}  // namespace com
