#pragma once

#include <array>

namespace paperway {

/// The rows of a table of cases; as the arguments of a call, short ones share a line.
template <class Row, class... Rows>
std::array<Row, 1 + sizeof...(Rows)> table(Row first, Rows... rest) {
  return {{first, rest...}};
}

}  // namespace paperway
