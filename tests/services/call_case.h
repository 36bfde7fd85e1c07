// Tables of calls: what an operation of a stand-in gives for its arguments.
//
//   const CallCase<Text, Text, std::int32_t, std::int32_t> rows[] = {
//       {"from the front", {u"abcdef", 1, 2}, u"ab"},
//   };
//   expectEach(*texto_, &clsTexto::fPart, rows);
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <type_traits>

#include "frame/text.h"

namespace LibTarvoCI::test {

template <class Result, class... Arguments>
struct CallCase {
  const char* shows;
  std::tuple<Arguments...> arguments;
  Result result;
};

// The operation's answer, or the text that it leaves in a result that held something else before.
template <class Service, class Operation, class... Arguments>
auto resultOf(Service& service, Operation operation, const Arguments&... arguments) {
  if constexpr (std::is_invocable_v<Operation, Service&, const Arguments&...>) {
    return std::invoke(operation, service, arguments...);
  } else {
    tarvo::Text result = u"left from an earlier call, and longer than most results";
    std::invoke(operation, service, arguments..., result);
    return result;
  }
}

// Calls the operation for every row.  A failure names the row.
template <class Service, class Operation, class Rows>
void expectEach(Service& service, Operation operation, const Rows& rows) {
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shows);
    const auto expectRow = [&](const auto&... arguments) {
      EXPECT_EQ(resultOf(service, operation, arguments...), row.result);
    };
    std::apply(expectRow, row.arguments);
  }
}

}  // namespace LibTarvoCI::test
