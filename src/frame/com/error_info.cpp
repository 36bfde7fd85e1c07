#include "frame/com/error_info.h"

#include <array>

namespace tarvo::com {
namespace {

constexpr HRESULT kClassicErrors = static_cast<HRESULT>(0x800A0000);
constexpr std::int32_t kGreatestClassicNumber = 0xFFFF;

struct StatusRow {
  HRESULT status;
  std::int32_t number;
};

// What automation's own statuses mean as classic errors.
constexpr std::array<StatusRow, 16> kStatuses{{
    {DISP_E_UNKNOWNINTERFACE, kNoSuchMember},
    {DISP_E_MEMBERNOTFOUND, kNoSuchMember},
    {DISP_E_UNKNOWNNAME, kNoSuchMember},
    {DISP_E_PARAMNOTFOUND, 448},
    {DISP_E_TYPEMISMATCH, kTypeMismatch},
    {DISP_E_BADVARTYPE, kTypeMismatch},
    {DISP_E_OVERFLOW, kOverflow},
    {DISP_E_BADINDEX, kSubscriptOutOfRange},
    {DISP_E_BADPARAMCOUNT, kWrongNumberOfArguments},
    {DISP_E_PARAMNOTOPTIONAL, kArgumentNotOptional},
    {DISP_E_DIVBYZERO, 11},
    {E_OUTOFMEMORY, kOutOfMemory},
    {E_INVALIDARG, kInvalidProcedureCall},
    {E_NOTIMPL, 445},
    {E_NOINTERFACE, 430},
    {REGDB_E_CLASSNOTREG, kCannotCreateObject},
}};

void setErrorObject(const RunTimeError& error, const IID& interfaceId) {
  ComPtr<ICreateErrorInfo> create;
  check(CreateErrorInfo(create.out()));
  create->SetGUID(interfaceId);
  create->SetDescription(Bstr(error.description()).get());
  create->SetSource(Bstr(error.source()).get());
  if (!error.helpFile().empty()) create->SetHelpFile(Bstr(error.helpFile()).get());
  create->SetHelpContext(static_cast<DWORD>(error.helpContext()));
  const ComPtr<IErrorInfo> info = query<IErrorInfo>(create.get(), IID_IErrorInfo);
  SetErrorInfo(0, info.get());
}

Text textOf(BSTR text) { return Text(viewOf(text)); }

RunTimeError::Details detailsOf(const EXCEPINFO& exception) {
  return {textOf(exception.bstrSource), textOf(exception.bstrDescription),
          textOf(exception.bstrHelpFile), static_cast<std::int32_t>(exception.dwHelpContext)};
}

void freeTexts(EXCEPINFO& exception) noexcept {
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  exception = {};
}

// An object may leave the details to be asked for, and the status in either of two fields.
void complete(EXCEPINFO& exception) noexcept {
  if (exception.pfnDeferredFillIn != nullptr) {
    exception.pfnDeferredFillIn(&exception);
    exception.pfnDeferredFillIn = nullptr;
  }
  if (exception.scode == 0 && exception.wCode != 0) {
    exception.scode = statusOfNumber(exception.wCode);
  }
}

}  // namespace

std::int32_t numberOfStatus(HRESULT status) noexcept {
  if ((static_cast<std::uint32_t>(status) & 0xFFFF0000u) ==
      static_cast<std::uint32_t>(kClassicErrors)) {
    return status & 0xFFFF;
  }
  for (const StatusRow& row : kStatuses) {
    if (row.status == status) return row.number;
  }
  return status;
}

HRESULT statusOfNumber(std::int32_t number) noexcept {
  if (number < 0) return number;
  const bool isClassic = number > 0 && number <= kGreatestClassicNumber;
  return kClassicErrors | (isClassic ? number : kInternalError);
}

HRESULT statusOfCurrentException(const IID& interfaceId) noexcept {
  const RunTimeError error = currentRunTimeError();
  try {
    setErrorObject(error, interfaceId);
  } catch (...) {
    SetErrorInfo(0, nullptr);  // no memory even for the description: the number must do
  }
  return statusOfNumber(error.number());
}

void takeErrorObject(HRESULT status, EXCEPINFO& exception) noexcept {
  exception = {};
  exception.scode = status;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) != S_OK) return;
  info->GetDescription(&exception.bstrDescription);
  info->GetSource(&exception.bstrSource);
  info->GetHelpFile(&exception.bstrHelpFile);
  info->GetHelpContext(&exception.dwHelpContext);
}

HRESULT reportException(HRESULT status, EXCEPINFO* exception) noexcept {
  if (exception == nullptr) return status;
  takeErrorObject(status, *exception);
  return DISP_E_EXCEPTION;
}

void raiseForeignError(HRESULT status, EXCEPINFO* exception) {
  EXCEPINFO own{};
  EXCEPINFO& info = exception != nullptr ? *exception : own;
  complete(info);
  const bool objectSaidMore = info.scode != 0 || info.bstrDescription != nullptr;
  if (!objectSaidMore) takeErrorObject(status, info);
  const HRESULT meant = info.scode != 0 ? info.scode : status;
  RunTimeError::Details details = detailsOf(info);
  freeTexts(info);
  const std::int32_t number = numberOfStatus(meant);
  if (details.description.empty()) details.description = describeErrorNumber(number);
  throw RunTimeError(number, std::move(details));
}

}  // namespace tarvo::com
