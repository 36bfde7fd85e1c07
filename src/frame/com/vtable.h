// The table of functions of a class's dual interface, made from its member table.
//
// Each entry takes COM's arguments, makes C++'s of them, calls the operation, gives the result and
// by-reference arguments back, and turns a run-time error into a status with an error object.  An
// out-parameter is defined even when the call fails: the result is empty, and by-reference
// arguments have what the operation had given them until then.
#pragma once

#include "frame/com/convert.h"
#include "frame/com/face.h"

namespace tarvo::com {

// An argument as COM gives it, and its parameter's name.
template <class Abi>
struct Given {
  Abi abi;
  const char* name;
};

// Raises: what the conversion raises; error 13 with the parameter's name.
template <class Plain>
void takeGiven(const typename Automation<Plain>::Abi& abi, const char* name, Plain& value) {
  try {
    Automation<Plain>::fromAbi(abi, value);
  } catch (const RunTimeError& error) {
    if (error.number() != kTypeMismatch) throw;
    throw RunTimeError(kTypeMismatch, fromAscii(name));
  }
}

// One argument on its way in, by value.
template <class Parameter>
class Incoming {
 public:
  using Plain = PlainOf<Parameter>;
  using Abi = typename Automation<Plain>::Abi;

  explicit Incoming(Given<Abi> given) { takeGiven(given.abi, given.name, value_); }
  Plain& get() noexcept { return value_; }
  void giveBack() noexcept {}

 private:
  Plain value_{};
};

// A text that is only read is read where it stands.
template <>
class Incoming<TextView> {
 public:
  using Abi = BSTR;
  explicit Incoming(Given<BSTR> given) noexcept : view_(viewOf(given.abi)) {}
  TextView get() const noexcept { return view_; }
  void giveBack() noexcept {}

 private:
  TextView view_;
};

// By reference.
template <class Parameter>
requires tarvo::detail::kIsByReference<Parameter>
class Incoming<Parameter> {
 public:
  using Plain = PlainOf<Parameter>;
  using Abi = typename Automation<Plain>::Abi*;

  explicit Incoming(Given<Abi> given) : abi_(given.abi) {
    if (abi_ == nullptr) throw RunTimeError(kInvalidProcedureCall, fromAscii(given.name));
    takeGiven(*abi_, given.name, value_);
  }
  Plain& get() noexcept { return value_; }

  void giveBack() {
    if (Automation<Plain>::equals(*abi_, value_)) return;
    typename Automation<Plain>::Abi changed{};
    Automation<Plain>::toAbi(value_, changed);
    Automation<Plain>::freeAbi(*abi_);
    *abi_ = changed;
  }

 private:
  Abi abi_;
  Plain value_{};
};

namespace detail {

// The parameters that a caller passes: all but one that is the result.
template <class Row,
          class = std::make_index_sequence<Row::parameterCount - (Row::resultIsParameter ? 1 : 0)>>
struct CallerParameters;
template <class Row, std::size_t... I>
struct CallerParameters<Row, std::index_sequence<I...>> {
  using Type = std::tuple<std::tuple_element_t<I, typename Row::Traits::Parameters>...>;
};

// Calls the operation and gives the by-reference arguments back, whatever comes of it.
template <class Call, class... In>
void callAndGiveBack(Call&& call, In&... in) {
  struct Giver {
    std::tuple<In&...> arguments;
    bool failed = true;
    void give() {
      std::apply([](In&... each) { (each.giveBack(), ...); }, arguments);
    }
    ~Giver() {
      if (!failed) return;
      try {
        give();
      } catch (...) {  // the operation's own error is on its way and says more
      }
    }
  } giver{{in...}};
  call(in.get()...);
  giver.failed = false;
  giver.give();
}

// What stands for a result wherever only its COM type matters.
template <class Plain>
struct CarrierOf {
  using Type = std::conditional_t<std::is_enum_v<Plain>, std::int32_t, Plain>;
};
template <class T>
struct CarrierOf<Ref<T>> {
  using Type = Ref<Object>;
};
template <>
struct CarrierOf<TextList> {
  using Type = Value;
};

// How an operation gets what a caller passed.
template <class Parameter>
using Taken = decltype(std::declval<Incoming<Parameter>&>().get());

template <class... P, class Body>
HRESULT takeAndRun(Face* face, std::size_t row, Body&& body,
                   typename Incoming<P>::Abi... abi) noexcept {
  const ClassInfo& info = *face->comClass.info;
  try {
    [[maybe_unused]] const ParameterInfo* next = info.members[row].parameters.data();
    std::tuple<Incoming<P>...> in{Given<typename Incoming<P>::Abi>{abi, (next++)->name}...};
    std::apply(
        [&](Incoming<P>&... each) {
          callAndGiveBack([&](auto&&... taken) { body(*face->object, taken...); }, each...);
        },
        in);
    return S_OK;
  } catch (...) {
    return statusOfCurrentException(platformGuid(interfaceId(info)));
  }
}

// All operations of one shape share this: the entry of each is no more than its operation and the
// number of its row.
template <class Carrier, class... P>
struct Shape {
  using ResultAbi = typename Automation<Carrier>::Abi;
  using Operation = void (*)(Object& object, Taken<P>... taken, ResultAbi& result);

  static HRESULT run(Face* face, typename Incoming<P>::Abi... abi, ResultAbi* result,
                     Operation operation, std::size_t row) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = ResultAbi{};
    const HRESULT status = takeAndRun<P...>(
        face, row, [&](Object& object, auto&&... taken) { operation(object, taken..., *result); },
        abi...);
    if (FAILED(status)) {
      Automation<Carrier>::freeAbi(*result);
      *result = ResultAbi{};
    }
    return status;
  }
};
template <class... P>
struct Shape<void, P...> {
  using Operation = void (*)(Object& object, Taken<P>... taken);

  static HRESULT run(Face* face, typename Incoming<P>::Abi... abi, Operation operation,
                     std::size_t row) noexcept {
    return takeAndRun<P...>(
        face, row, [&](Object& object, auto&&... taken) { operation(object, taken...); }, abi...);
  }
};

// The entry of T's row at `Index`; `Parameters` is the tuple of what the caller passes.
template <class T, std::size_t Index, class Result, class Parameters>
struct Entry;

// No result.
template <class T, std::size_t Index, class... P>
struct Entry<T, Index, void, std::tuple<P...>> {
  static void operate(Object& object, Taken<P>... taken) {
    (static_cast<T&>(object).*RowOf<T, Index>::function)(taken...);
  }

  static HRESULT STDMETHODCALLTYPE call(Face* face, typename Incoming<P>::Abi... abi) {
    return Shape<void, P...>::run(face, abi..., &operate, Index);
  }
};

// With a result, returned or put into the last parameter.
template <class T, std::size_t Index, class Result, class... P>
struct Entry<T, Index, Result, std::tuple<P...>> {
  using ResultAbi = typename Automation<Result>::Abi;

  static void operate(Object& object, Taken<P>... taken, ResultAbi& result) {
    using Row = RowOf<T, Index>;
    auto& self = static_cast<T&>(object);
    if constexpr (Row::resultIsParameter) {
      Result value{};
      (self.*Row::function)(taken..., value);
      Automation<Result>::toAbi(value, result);
    } else {
      Automation<Result>::toAbi((self.*Row::function)(taken...), result);
    }
  }

  static HRESULT STDMETHODCALLTYPE call(Face* face, typename Incoming<P>::Abi... abi,
                                        ResultAbi* result) {
    return Shape<typename CarrierOf<Result>::Type, P...>::run(face, abi..., result, &operate,
                                                              Index);
  }
};

template <class T, std::size_t Index>
struct EntryAt {
  using Row = RowOf<T, Index>;
  using ReturnedOrPut = PlainOf<typename tarvo::detail::ResultOf<Row>::Type>;
  using Type = Entry<T, Index, ReturnedOrPut, typename CallerParameters<Row>::Type>;
};

}  // namespace detail

inline constexpr std::size_t kDispatchFunctionCount = 7;

// The table itself.
template <class T>
const void* const* vtableOf() {
  static const auto table = []<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<const void*, kDispatchFunctionCount + sizeof...(I)>{
        reinterpret_cast<const void*>(&faceQueryInterface),
        reinterpret_cast<const void*>(&faceAddRef),
        reinterpret_cast<const void*>(&faceRelease),
        reinterpret_cast<const void*>(&faceGetTypeInfoCount),
        reinterpret_cast<const void*>(&faceGetTypeInfo),
        reinterpret_cast<const void*>(&faceGetIDsOfNames),
        reinterpret_cast<const void*>(&faceInvoke),
        reinterpret_cast<const void*>(&detail::EntryAt<T, I>::Type::call)...};
  }
  (std::make_index_sequence<kMemberCount<T>>());
  return table.data();
}

// How a server lists a class: `Implementation` is what a client gets when it creates one.
template <class T, class Implementation = T>
ComClass comClass() {
  return {&Described<T>::info, vtableOf<T>(),
          []() -> Ref<Object> { return make<Implementation>(); }};
}

}  // namespace tarvo::com
