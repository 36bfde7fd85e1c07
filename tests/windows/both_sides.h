// A class of the server beside the same class of this program's own copy of the library: whatever
// is done to both must show the same on both, through the table of functions and by name.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "callback_test.h"
#include "fake_service.h"
#include "frame/com/outside_object.h"

namespace tarvo::com {

// --- Values as texts.

inline std::string show(bool value) { return value ? "true" : "false"; }
inline std::string show(TextView value) { return "\"" + toUtf8(value) + "\""; }
inline std::string show(const Text& value) { return show(TextView(value)); }
inline std::string show(Currency value) { return std::to_string(value.tenThousandths) + "/10000"; }
inline std::string show(Date value) { return "day " + std::to_string(value.serial); }
template <class Number>
requires std::is_integral_v<Number> || std::is_enum_v<Number> std::string show(Number value) {
  return std::to_string(static_cast<std::int64_t>(value));
}
inline std::string show(const Value& value) {
  if (const auto* text = value.tryGet<Text>()) return show(*text);
  const auto* items = value.tryGet<ValueArray>();
  if (items == nullptr) return "kind " + std::to_string(value.content().index());
  std::string all = "[";
  for (const Value& item : *items) all += show(item) + " ";
  return all + "]";
}
template <class T>
std::string show(const Ref<T>& object) {
  return object ? "an object" : "Nothing";
}

// --- The readable properties of a class, one line each.

// Whether the row reads a property.
template <class T, std::size_t Index>
inline constexpr bool kReads = RowOf<T, Index>::parameterCount == 0 &&
                               !std::is_void_v<typename detail::EntryAt<T, Index>::ReturnedOrPut>;

template <class T>
const MemberInfo& memberAt(std::size_t index) {
  return Described<T>::info.members[index];
}

inline bool isGetter(const MemberInfo& member) { return member.fullName().starts_with("Get"); }

template <class T, std::size_t... I, class ReadOne>
std::string listOf(std::index_sequence<I...>, ReadOne&& readOne) {
  std::string all;
  const auto add = [&]<std::size_t Index>(std::integral_constant<std::size_t, Index>) {
    if constexpr (kReads<T, Index>) {
      if (!isGetter(memberAt<T>(Index))) return;
      all += memberAt<T>(Index).fullName() + " " +
             readOne(std::integral_constant<std::size_t, Index>()) + "\n";
    }
  };
  (add(std::integral_constant<std::size_t, I>()), ...);
  return all;
}

template <class T, class ReadOne>
std::string listOf(ReadOne&& readOne) {
  return listOf<T>(std::make_index_sequence<kMemberCount<T>>(), readOne);
}

// The object itself.
template <class T>
std::string ownProperties(T& object) {
  return listOf<T>([&]<std::size_t I>(std::integral_constant<std::size_t, I>) {
    return show((object.*RowOf<T, I>::function)());
  });
}

// An object is told apart from Nothing and no more: it may be another server's.
template <class Plain>
std::string showVariant(VARIANT& value) {
  if (V_VT(&value) != Automation<Plain>::kVarType && Automation<Plain>::kVarType != VT_VARIANT) {
    return "of kind " + std::to_string(V_VT(&value));
  }
  if constexpr (Automation<Plain>::kVarType == VT_DISPATCH) {
    return V_DISPATCH(&value) != nullptr ? "an object" : "Nothing";
  } else {
    Plain plain{};
    storeVariant(value, plain);
    return show(plain);
  }
}

// Through the table of functions.
template <class T>
std::string earlyProperties(IUnknown* object) {
  return listOf<T>([&]<std::size_t I>(std::integral_constant<std::size_t, I>) -> std::string {
    using Plain = typename detail::EntryAt<T, I>::ReturnedOrPut;
    using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, typename Automation<Plain>::Abi*);
    auto* functions = *reinterpret_cast<const void***>(object);
    Variant result;
    if constexpr (Automation<Plain>::kVarType != VT_VARIANT) {
      V_VT(&result) = Automation<Plain>::kVarType;
    }
    const auto function =
        reinterpret_cast<Function>(const_cast<void*>(functions[kDispatchFunctionCount + I]));
    const HRESULT status = function(object, &Automation<Plain>::in(result));
    return status == S_OK ? showVariant<Plain>(result) : "failed";
  });
}

// By name.
template <class T>
std::string lateProperties(IUnknown* object) {
  const NamedAccess named(object);
  return listOf<T>([&]<std::size_t I>(std::integral_constant<std::size_t, I>) {
    Variant result;
    named.invoke(named.idOf(fromAscii(memberAt<T>(I).fullName())), DISPATCH_METHOD, {}, &result);
    return showVariant<typename detail::EntryAt<T, I>::ReturnedOrPut>(result);
  });
}

// --- Setters: every one of the table, with the values at the ends of its type.

template <class Plain>
std::vector<Plain> endsOf() {
  if constexpr (std::is_same_v<Plain, bool>) {
    return {true, false};
  } else if constexpr (std::is_enum_v<Plain>) {
    return {static_cast<Plain>(3), static_cast<Plain>(0), static_cast<Plain>(-7)};
  } else if constexpr (std::is_same_v<Plain, Text>) {
    return {Text(u"Año\0{,}", 7), Text()};
  } else if constexpr (std::is_same_v<Plain, Value>) {
    return {ValueArray{Text(u"Sí"), Text(u"No")}, Empty{}, Text(u"texto"), std::int16_t{7}};
  } else {
    return {std::numeric_limits<Plain>::max(), std::numeric_limits<Plain>::min(), Plain{5}};
  }
}

// The row of a setter follows that of its getter.
template <class T, std::size_t Get>
void setEnds(T& own, IUnknown* server, int which) {
  if constexpr (Get + 1 < kMemberCount<T> && kReads<T, Get>) {
    constexpr std::size_t kSet = Get + 1;
    if constexpr (RowOf<T, kSet>::parameterCount == 1) {
      using Plain = typename detail::EntryAt<T, Get>::ReturnedOrPut;
      if constexpr (!tarvo::detail::kIsRef<Plain>) {
        if (std::string(memberAt<T>(kSet).prefix) != "Set") return;
        using Automated = Automation<Plain>;
        using Function = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, typename Automated::Abi);
        const std::vector<Plain> ends = endsOf<Plain>();
        const Plain value = ends[static_cast<std::size_t>(which) % ends.size()];
        (own.*RowOf<T, kSet>::function)(value);
        auto* functions = *reinterpret_cast<const void***>(server);
        const auto function =
            reinterpret_cast<Function>(const_cast<void*>(functions[kDispatchFunctionCount + kSet]));
        Variant argument;
        Automated::toAbi(value, Automated::in(argument));
        if constexpr (Automated::kVarType != VT_VARIANT) V_VT(&argument) = Automated::kVarType;
        EXPECT_EQ(S_OK, function(server, Automated::in(argument))) << memberAt<T>(kSet).fullName();
      }
    }
  }
}

template <class T>
void setAllEnds(T& own, IUnknown* server, int which) {
  [&]<std::size_t... I>(std::index_sequence<I...>) { (setEnds<T, I>(own, server, which), ...); }
  (std::make_index_sequence<kMemberCount<T>>());
}

// --- The two sides.

// Messages as they are shown.
class OwnMessages final : public clsMessage {
 public:
  std::string shown;
  void sShowMessage(Text& refText) override { shown += toUtf8(refText) + "\n"; }
  void sShowMessageWithTitle(TextView valText, TextView valTitle) override {
    shown += "[" + toUtf8(valTitle) + "] " + toUtf8(valText) + "\n";
  }
  void sWarning(Text& refText) override { sShowMessage(refText); }
  void sWarningWithTitle(TextView valText, TextView valTitle) override {
    sShowMessageWithTitle(valText, valTitle);
  }
  bool fAskAcceptCancel(TextView, TextView) override { return true; }
  bool fWarnLocation(TextView, std::int16_t) override { return true; }
};

// What an action ended in: "ok", or the error's number, source and description.
template <class Action>
std::string ownOutcome(Action&& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return std::to_string(error.number()) + " " + toUtf8(error.source()) + "|" +
           toUtf8(error.description());
  }
  return "ok";
}
inline std::string outcomeOf(HRESULT status) {
  if (status == S_OK) return "ok";
  return std::to_string(status & 0xFFFF) + " " + client::takeErrorText();
}

class BothSides : public testing::Test {
 protected:
  BothSides() {
    useStandIns();
    ownMessages_ = make<OwnMessages>();
    modRDPGlobalValues::ofThisThread().refInsMessage = ownMessages_;
    fillProfile(*modRDPGlobalValues::ofThisThread().refInsImp);
  }
  ~BothSides() override {
    client::handOverNothing();
    EXPECT_EQ(0, messages_.references());
    useNothing();
  }

  void SetUp() override {
    using client::createPrinter;
    messages_.offer(L"sShowMessageWithTitle", [this](auto& arguments, VARIANT*, EXCEPINFO*) {
      shown_ += "[" + toUtf8(viewOf(V_BSTR(arguments[1]))) + "] " +
                toUtf8(viewOf(V_BSTR(arguments[0]))) + "\n";
      return S_OK;
    });
    client::Services services = client::Services::fromCompanion();
    services.message =
        ComPtr<_clsMessage>(reinterpret_cast<_clsMessage*>(static_cast<IDispatch*>(&messages_)));
    const auto startUp = client::createStartUp();
    const auto channel = createPrinter();
    ASSERT_TRUE(startUp && channel);
    ASSERT_EQ(S_OK, services.handOver(startUp.get()));
    fillProfile(channel.get());
    _clsUtilImp* printer = channel.get();
    _clsUtReport* report = services.utReport.get();
    ASSERT_EQ(S_OK, startUp->sInitializePrintLibrary(&printer, &report));
  }

  // The messages since the last time, of each side.
  std::string takeMessages() { return std::exchange(shown_, {}); }
  std::string takeOwnMessages() { return std::exchange(ownMessages_->shown, {}); }

  // The server's message service.
  client::FakeService messages_;

 private:
  static constexpr TextView kCodes[] = {u"<cond>", u"<norm>",  u"<exp>",   u"</exp>",
                                        u"<bold>", u"<light>", u"<under>", u"</under>"};

  static void fillProfile(clsUtilImp& channel) {
    channel.SetChrCondensed(kCodes[0]);
    channel.SetChrNormal(kCodes[1]);
    channel.SetChrInitExpanded(kCodes[2]);
    channel.SetChrEndExpanded(kCodes[3]);
    channel.SetChrBold(kCodes[4]);
    channel.SetChrLight(kCodes[5]);
    channel.SetChrInitUnderlying(kCodes[6]);
    channel.SetChrEndUnderlying(kCodes[7]);
  }
  static void fillProfile(_clsUtilImp* channel) {
    channel->SetChrCondensed(Bstr(kCodes[0]).get());
    channel->SetChrNormal(Bstr(kCodes[1]).get());
    channel->SetChrInitExpanded(Bstr(kCodes[2]).get());
    channel->SetChrEndExpanded(Bstr(kCodes[3]).get());
    channel->SetChrBold(Bstr(kCodes[4]).get());
    channel->SetChrLight(Bstr(kCodes[5]).get());
    channel->SetChrInitUnderlying(Bstr(kCodes[6]).get());
    channel->SetChrEndUnderlying(Bstr(kCodes[7]).get());
  }

  Ref<OwnMessages> ownMessages_;
  std::string shown_;
};

}  // namespace tarvo::com
