// What the tests of callback objects stand on: the probe with the library's services behind it.
#pragma once

#include "callback_probe.h"
#include "client.h"
#include "frame/modRDPGlobalValues.h"
#include "printer/clsUtilImp.h"
#include "probe_client.h"
#include "services/clsConvert.h"
#include "services/clsError.h"
#include "services/clsTexto.h"
#include "services/clsUtilDate.h"
#include "services/clsUtilMathOperations.h"

namespace tarvo::com {

// This program's own copy of the library, with the stand-ins: what is compared with the server, or
// calls a client.
inline void useStandIns() {
  modRDPGlobalValues& services = modRDPGlobalValues::ofThisThread();
  services = modRDPGlobalValues();
  services.refInsError = make<LibTarvoCI::clsError>();
  services.refInsTexto = make<LibTarvoCI::clsTexto>();
  services.refInsConvert = make<LibTarvoCI::clsConvert>();
  services.refInsUtilDate = make<LibTarvoCI::clsUtilDate>();
  services.refInsUtilMathOperations = make<LibTarvoCI::clsUtilMathOperations>();
  services.refInsImp = make<clsUtilImp>();
}
inline void useNothing() { modRDPGlobalValues::ofThisThread() = modRDPGlobalValues(); }

// The field of the line's variable.
inline std::string fieldOf(_clsObLineCharacts* line) {
  Bstr field;
  return line->GetField(field.out()) == S_OK ? toUtf8(field.view()) : "(failed)";
}

// What a reference to a value of any kind names.
inline VARIANT& behind(VARIANT* argument) { return *V_VARIANTREF(argument); }

template <class Probe>
class CallbackTestOf : public ClientOf<Probe> {
 protected:
  CallbackTestOf() { useStandIns(); }
  ~CallbackTestOf() override { useNothing(); }

  HRESULT init(IUnknown* client) {
    VARIANT object = holding(VT_DISPATCH, client);
    return this->call(L"sInit", {referenceTo(object)});
  }

  // The line with the client's values; "STATUS SOURCE|DESCRIPTION" when that fails.
  std::string translate(TextView line) {
    const Bstr text(line);
    return answer(L"fTranslateLine", holding(VT_BSTR, text.get()));
  }

  std::string answer(const wchar_t* operation, const VARIANT& argument) {
    Variant result;
    const HRESULT status = this->call(operation, {argument}, &result);
    if (status == S_OK) return toUtf8(viewOf(V_BSTR(&result)));
    char number[16];
    snprintf(number, sizeof number, "%08lx ", static_cast<unsigned long>(status));
    return number + toUtf8(this->source_) + "|" + toUtf8(this->description_);
  }
};

class CallbackTest : public CallbackTestOf<clsCallbackProbe> {
 protected:
  std::string callAll(Currency total = Currency::ofUnits(100)) {
    return answer(L"fCallAll", holding(VT_CY, total.tenThousandths));
  }
};

}  // namespace tarvo::com
