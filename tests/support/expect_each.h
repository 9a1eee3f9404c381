#pragma once

#include <array>
#include <gtest/gtest.h>
#include <tuple>
#include <utility>

namespace paperway {

/// The rows of a table of cases; as the arguments of a call, short ones share a line.
template <class First, class... Rest>
std::array<First, 1 + sizeof...(Rest)> table(First first, Rest... rest) {
  return {{first, rest...}};
}

/// An example of a call: its arguments and, last, what it gives.
template <class... Cells>
struct Row {
  Row(Cells... values) : cells(std::move(values)...) {}
  std::tuple<Cells...> cells;
};

template <class Call, class... Cells, std::size_t... I>
void expectRow(const Call& call, const std::tuple<Cells...>& cells, std::index_sequence<I...>) {
  const auto given = call(std::get<I>(cells)...);
  const auto expected = static_cast<decltype(given)>(std::get<sizeof...(I)>(cells));
  EXPECT_EQ(given, expected) << "of " << testing::PrintToString(std::tuple(std::get<I>(cells)...));
}

template <class Call, class... Rows>
void expectEach(const Call& call, const Rows&... rows) {
  (expectRow(
       call, rows.cells, std::make_index_sequence<std::tuple_size_v<decltype(rows.cells)> - 1>()),
   ...);
}

}  // namespace paperway
