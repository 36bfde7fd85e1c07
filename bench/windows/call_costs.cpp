// What a call of the printer channel costs a client, by the way it is made.
//
//   call_costs SCRIPT_RESULTS
//
// Early bound: through the dual interface's table.  Late bound: IDispatch::Invoke, with the
// member's number known, and with its name looked up before each call, as scripting engines do. The
// last column is a script's own measurement (call_costs.vbs), read from a file.
//
// Every number is the least of several runs.  Both servers must be registered.
#include <windows.h>
// windows.h must come first.
#include <cguid.h>
#include <initguid.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <string>

#include "LibTarvoRdpCI_2402.h"

namespace {

constexpr int kRuns = 7;

[[noreturn]] void fail(const char* what, HRESULT status) {
  std::printf("%s: %08lX\n", what, static_cast<unsigned long>(status));
  std::exit(1);
}

void check(HRESULT status, const char* what) {
  if (FAILED(status)) fail(what, status);
}

// Nanoseconds for each call of `call`.
template <class Call>
double costOf(int calls, Call&& call) {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  double least = 0;
  for (int run = 0; run < kRuns; ++run) {
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    QueryPerformanceCounter(&start);
    for (int i = 0; i < calls; ++i) call();
    QueryPerformanceCounter(&end);
    const double cost = static_cast<double>(end.QuadPart - start.QuadPart) * 1e9 /
                        static_cast<double>(frequency.QuadPart) / calls;
    if (run == 0 || cost < least) least = cost;
  }
  return least;
}

IDispatch* create(const wchar_t* progId) {
  CLSID id;
  void* object = nullptr;
  check(CLSIDFromProgID(progId, &id), "CLSIDFromProgID");
  check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &object),
        "CoCreateInstance");
  return static_cast<IDispatch*>(object);
}

VARIANT objectVariant(IDispatch* object) {
  VARIANT variant;
  V_VT(&variant) = VT_DISPATCH;
  V_DISPATCH(&variant) = object;
  return variant;
}
VARIANT textVariant(BSTR text) {
  VARIANT variant;
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = text;
  return variant;
}
VARIANT integerVariant(SHORT number) {
  VARIANT variant;
  V_VT(&variant) = VT_I2;
  V_I2(&variant) = number;
  return variant;
}

// A member of an object by its name.
class Member {
 public:
  Member(IDispatch* object, const wchar_t* name) : object_(object), name_(name) {
    id_ = idOfName();
  }

  // Arguments stand last to first.
  void call(VARIANT* arguments, UINT count) const { invoke(id_, arguments, count); }
  void callByName(VARIANT* arguments, UINT count) const { invoke(idOfName(), arguments, count); }

 private:
  DISPID idOfName() const {
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(name_);
    check(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
    return id;
  }
  void invoke(DISPID id, VARIANT* arguments, UINT count) const {
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception{};
    check(object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result,
                          &exception, nullptr),
          "Invoke");
    VariantClear(&result);
  }

  IDispatch* object_;
  const wchar_t* name_;
  DISPID id_;
};

// Hands the companion's services over, as every client does.
void startLibrary() {
  const wchar_t* const services[] = {
      L"clsError", L"clsMessage",  L"clsTexto",    L"clsDefGen",       L"clsConvert",
      L"clsApi",   L"clsUtilFile", L"clsUtilDate", L"clsErrorCodesIG", L"clsUtilMathOperations"};
  VARIANT arguments[10];
  for (int i = 0; i < 10; ++i) {
    arguments[9 - i] = objectVariant(create((std::wstring(L"LibTarvoCI.") + services[i]).c_str()));
  }
  IDispatch* const start = create(L"LibTarvoRdpCI.clsInitLibTarvoRpd");
  Member(start, L"sInitializeInternalGlobalClasses").call(arguments, 10);
  start->Release();
}

// "NAME NANOSECONDS" lines.
std::map<std::string, double> readResults(const char* fileName) {
  std::map<std::string, double> results;
  std::ifstream file(fileName);
  std::string name;
  double cost = 0;
  while (file >> name >> cost) results[name] = cost;
  return results;
}

class Table {
 public:
  explicit Table(std::map<std::string, double> scripts) : scripts_(std::move(scripts)) {
    std::printf("%u bit, nanoseconds for each call, least of %d runs\n",
                static_cast<unsigned>(sizeof(void*) * 8), kRuns);
    std::printf("%-32s %10s %10s %10s %10s\n", "", "early", "late", "by name", "VBScript");
  }

  template <class Early>
  void row(const char* shows, const char* name, int calls, Early&& early, const Member& member,
           VARIANT* arguments, UINT count) {
    const double earlyCost = costOf(calls, early);
    const double lateCost = costOf(calls, [&] { member.call(arguments, count); });
    const double namedCost = costOf(calls, [&] { member.callByName(arguments, count); });
    std::printf("%-32s %10.1f %10.1f %10.1f ", shows, earlyCost, lateCost, namedCost);
    const auto script = scripts_.find(name);
    if (script == scripts_.end()) {
      std::printf("%10s\n", "-");
    } else {
      std::printf("%10.0f\n", script->second);
    }
  }

 private:
  std::map<std::string, double> scripts_;
};

void measure(_clsUtilImp* channel, Table& table) {
  constexpr int kMany = 100000;
  constexpr int kFew = 10000;

  table.row(
      "GetMaxLinPage", "GetMaxLinPage", kMany,
      [&] {
        BYTE lines = 0;
        check(channel->GetMaxLinPage(&lines), "GetMaxLinPage");
      },
      Member(channel, L"GetMaxLinPage"), nullptr, 0);

  const BSTR code = SysAllocString(L"\033E");
  VARIANT codeArgument = textVariant(code);
  const Member setBold(channel, L"SetChrBold");
  const auto setBoldEarly = [&] { check(channel->SetChrBold(code), "SetChrBold"); };
  table.row("SetChrBold, two characters", "SetChrBold", kMany, setBoldEarly, setBold, &codeArgument,
            1);
  // As scripts pass variables.
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &codeArgument;
  table.row("SetChrBold, a variable", "SetChrBold_variable", kMany, setBoldEarly, setBold,
            &reference, 1);

  const BSTR line = SysAllocString(std::wstring(78, L'x').c_str());
  VARIANT lineArguments[] = {integerVariant(2), textVariant(line)};
  table.row(
      "sWriteLn, 80 characters, to NUL", "sWriteLn", kFew,
      [&] { check(channel->sWriteLn(line, 2), "sWriteLn"); }, Member(channel, L"sWriteLn"),
      lineArguments, 2);
  SysFreeString(line);
  SysFreeString(code);
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) {
    std::puts("usage: call_costs SCRIPT_RESULTS");
    return 2;
  }
  check(CoInitialize(nullptr), "CoInitialize");
  startLibrary();
  IDispatch* const object = create(L"LibTarvoRdpCI.clsUtilImp");
  void* interfacePointer = nullptr;
  check(object->QueryInterface(IID__clsUtilImp, &interfacePointer), "QueryInterface");
  auto* const channel = static_cast<_clsUtilImp*>(interfacePointer);

  const BSTR printer = SysAllocString(L"file:NUL");
  const BSTR document = SysAllocString(L"Medida");
  check(channel->sInitializePrinterFileHandle(printer, document), "sInitializePrinterFileHandle");
  Table table(readResults(words[1]));
  measure(channel, table);
  check(channel->sClosePrinterFileHandle(), "sClosePrinterFileHandle");
  SysFreeString(printer);
  SysFreeString(document);
  channel->Release();
  object->Release();
  return 42;
}
