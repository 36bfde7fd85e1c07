// The member table of a public class: one row for each operation, in interface order.
//
// A class joins the type library by specialising Members<> beside it and being listed once in its
// library's class list (public_classes.h):
//
//   template <>
//   struct Members<clsBody> {
//     static constexpr const LibraryInfo& library = kPrintLibrary;
//     static constexpr std::uint16_t number = 9;
//     static constexpr const char* name = "clsBody";
//     static constexpr const char* help = "The line buffer of a body";
//     static constexpr auto table = memberTable(
//         property<&clsBody::GetX, &clsBody::SetX>("X", "what X is"),
//         method<&clsBody::sDo>("sDo", "what it does", "valFirst", "refSecond"));
//   };
//
// Everything else follows from the C++ signatures: types, by value or by reference, results.  A
// parameter of the type `T&` or `const T&` is by reference (texts and values: only `T&` is).  An
// operation that puts its result into its last parameter has one parameter name less.
//
// The order of the rows is the order of the interface, and part of the contract with every client
// that was compiled against it: rows are added at the end, never moved.
#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

#include "frame/class_info.h"
#include "frame/currency.h"
#include "frame/date.h"
#include "frame/object.h"
#include "frame/text.h"
#include "frame/value.h"

namespace tarvo {

template <class T>
struct Members;

template <class E>
struct Enumeration;  // of an enumeration: `static constexpr EnumInfo info`

// --- The signature of a member function.

template <class F>
struct Signature;
template <class R, class C, class... A>
struct Signature<R (C::*)(A...)> {
  using Class = C;
  using Result = R;
  using Parameters = std::tuple<A...>;
};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) const> : Signature<R (C::*)(A...)> {};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) noexcept> : Signature<R (C::*)(A...)> {};
template <class R, class C, class... A>
struct Signature<R (C::*)(A...) const noexcept> : Signature<R (C::*)(A...)> {};

// --- Rows.

template <auto Function, std::size_t NameCount>
struct MemberRow {
  using Traits = Signature<decltype(Function)>;
  static constexpr auto function = Function;
  static constexpr std::size_t parameterCount = std::tuple_size_v<typename Traits::Parameters>;
  // Whether the last parameter is where the operation puts its result.
  static constexpr bool resultIsParameter = NameCount + 1 == parameterCount;
  static_assert(NameCount == parameterCount || resultIsParameter,
                "a row names every parameter of its operation");

  const char* prefix;
  const char* name;
  const char* help;
  std::array<const char*, NameCount> parameterNames;
};

template <auto Function, class... Names>
constexpr auto method(const char* name, const char* help, Names... parameterNames) {
  return std::tuple(MemberRow<Function, sizeof...(Names)>{"", name, help, {{parameterNames...}}});
}

template <auto Getter, auto Setter>
constexpr auto property(const char* name, const char* help) {
  return std::tuple(MemberRow<Getter, 0>{"Get", name, help, {}},
                    MemberRow<Setter, 1>{"Set", name, help, {{"valNewValue"}}});
}

template <auto Getter>
constexpr auto readOnlyProperty(const char* name, const char* help) {
  return std::tuple(MemberRow<Getter, 0>{"Get", name, help, {}});
}

template <class... Rows>
constexpr auto memberTable(Rows... rows) {
  return std::tuple_cat(rows...);
}

template <class T>
using MemberTable = std::remove_cvref_t<decltype(Members<T>::table)>;
template <class T>
inline constexpr std::size_t kMemberCount = std::tuple_size_v<MemberTable<T>>;
template <class T, std::size_t Index>
using RowOf = std::tuple_element_t<Index, MemberTable<T>>;

// --- From C++ types to described ones.

// The description of a class, from its table: Described<T>::info.
template <class T>
struct Described {
  static const ClassInfo info;
};

namespace detail {

template <class T>
struct RefTarget {
  using Type = void;
};
template <class T>
struct RefTarget<Ref<T>> {
  using Type = T;
};
template <class T>
inline constexpr bool kIsRef = !std::is_void_v<typename RefTarget<T>::Type>;

template <class T>
inline constexpr bool kIsTextLike = std::is_same_v<T, Text> || std::is_same_v<T, TextView>;

// `Plain` is the type without reference and const.
template <class Plain>
constexpr TypeInfo typeOf() {
  if constexpr (std::is_void_v<Plain>) {
    return {};
  } else if constexpr (std::is_same_v<Plain, bool>) {
    return {TypeKind::kBoolean};
  } else if constexpr (std::is_same_v<Plain, std::uint8_t>) {
    return {TypeKind::kByte};
  } else if constexpr (std::is_same_v<Plain, std::int16_t>) {
    return {TypeKind::kInt16};
  } else if constexpr (std::is_same_v<Plain, std::int32_t>) {
    return {TypeKind::kInt32};
  } else if constexpr (std::is_same_v<Plain, double>) {
    return {TypeKind::kDouble};
  } else if constexpr (std::is_same_v<Plain, Currency>) {
    return {TypeKind::kCurrency};
  } else if constexpr (std::is_same_v<Plain, Date>) {
    return {TypeKind::kDate};
  } else if constexpr (kIsTextLike<Plain>) {
    return {TypeKind::kText};
  } else if constexpr (std::is_same_v<Plain, Value> || std::is_same_v<Plain, TextList>) {
    return {TypeKind::kValue};
  } else if constexpr (std::is_enum_v<Plain>) {
    return {TypeKind::kEnum, nullptr, &Enumeration<Plain>::info};
  } else if constexpr (std::is_same_v<Plain, Ref<Object>>) {
    return {TypeKind::kObject};
  } else {
    static_assert(kIsRef<Plain>, "no automation type for this C++ type");
    return {TypeKind::kObject, &Described<typename RefTarget<Plain>::Type>::info};
  }
}

// Texts and values are handed in as `const T&` for C++'s sake alone.
template <class Parameter>
inline constexpr bool kIsByReference = [] {
  using Plain = std::remove_cvref_t<Parameter>;
  constexpr bool isLarge = kIsTextLike<Plain> || std::is_same_v<Plain, Value>;
  constexpr bool isConst = std::is_const_v<std::remove_reference_t<Parameter>>;
  return std::is_lvalue_reference_v<Parameter> && !(isLarge && isConst);
}();

template <class T, std::size_t Index>
inline constexpr auto kParameters = []<std::size_t... I>(std::index_sequence<I...>) {
  using Parameters = typename RowOf<T, Index>::Traits::Parameters;
  return std::array<ParameterInfo, sizeof...(I)>{
      ParameterInfo{std::get<Index>(Members<T>::table).parameterNames[I],
                    typeOf<std::remove_cvref_t<std::tuple_element_t<I, Parameters>>>(),
                    kIsByReference<std::tuple_element_t<I, Parameters>>}...};
}
(std::make_index_sequence<
    std::tuple_size_v<decltype(std::get<Index>(Members<T>::table).parameterNames)>>());

// The C++ type of what a row's operation gives, wherever it puts it.
template <class Row>
struct ResultOf {
  using Type = std::remove_cvref_t<typename Row::Traits::Result>;
};
template <class Row>
requires Row::resultIsParameter struct ResultOf<Row> {
  using Type = std::remove_cvref_t<
      std::tuple_element_t<Row::parameterCount - 1, typename Row::Traits::Parameters>>;
};

template <class T, std::size_t Index>
constexpr MemberInfo memberInfo() {
  const auto& row = std::get<Index>(Members<T>::table);
  return {row.prefix, row.name, row.help, kParameters<T, Index>,
          typeOf<typename ResultOf<RowOf<T, Index>>::Type>()};
}

template <class T>
inline constexpr auto kMembers = []<std::size_t... I>(std::index_sequence<I...>) {
  return std::array<MemberInfo, sizeof...(I)>{memberInfo<T, I>()...};
}
(std::make_index_sequence<kMemberCount<T>>());

}  // namespace detail

template <class T>
constinit const ClassInfo Described<T>::info{Members<T>::name, Members<T>::help,
                                             &Members<T>::library, Members<T>::number,
                                             detail::kMembers<T>};

// The classes of a library, in the order of their numbers.
template <class... Classes>
struct ClassList {
  static constexpr std::array<const ClassInfo*, sizeof...(Classes)> infos{
      &Described<Classes>::info...};
};

// The enumerations of a library.
template <class... Enumerations>
struct EnumList {
  static constexpr std::array<const EnumInfo*, sizeof...(Enumerations)> infos{
      &Enumeration<Enumerations>::info...};
};

namespace detail {

// Functions are told apart as template arguments: comparing pointers to virtual functions is not.
template <auto Function>
struct FunctionTag {};

}  // namespace detail

// Where an operation stands in its class's table; the number of rows when it does not.
template <class T, auto Function>
inline constexpr std::size_t kRowIndex = []<std::size_t... I>(std::index_sequence<I...>) {
  std::size_t found = kMemberCount<T>;
  ((std::is_same_v<detail::FunctionTag<RowOf<T, I>::function>, detail::FunctionTag<Function>>
        ? void(found = I)
        : void()),
   ...);
  return found;
}
(std::make_index_sequence<kMemberCount<T>>());

}  // namespace tarvo
