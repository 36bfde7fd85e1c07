// A service object from outside, made by hand: it answers by name only, the way a script object
// does, and records what it sees.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "client.h"

namespace tarvo::client {

class FakeService final : public IDispatch {
 public:
  // The arguments in their order; what it puts into `result` is the call's.  A failed status is
  // handed out with what `exception` holds.
  using Operation = std::function<HRESULT(std::vector<VARIANT*>& arguments, VARIANT* result,
                                          EXCEPINFO* exception)>;

  // The operation's number; names are compared exactly.
  void offer(const std::wstring& name, Operation operation) {
    names_[name] = static_cast<DISPID>(operations_.size() + 1);
    operations_.push_back(std::move(operation));
  }

  int references() const { return references_; }
  int nameLookups() const { return nameLookups_; }

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *result = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  // On the test's stack: it only counts.
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    ++nameLookups_;
    const auto found = names_.find(names[0]);
    if (found == names_.end()) return DISP_E_UNKNOWNNAME;
    *ids = found->second;
    return S_OK;
  }

  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override {
    std::vector<VARIANT*> arguments;
    for (UINT i = parameters->cArgs; i-- > 0;) arguments.push_back(&parameters->rgvarg[i]);
    return operations_[static_cast<std::size_t>(id - 1)](arguments, result, exception);
  }

 private:
  std::map<std::wstring, DISPID> names_;
  std::vector<Operation> operations_;
  int references_ = 0;
  int nameLookups_ = 0;
};

}  // namespace tarvo::client
