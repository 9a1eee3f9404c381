#pragma once

#include <optional>

namespace paperway {

/// Code pages by the numbers of ESC ( t.
struct CodeTable {
  int page;
  unsigned char number;
};
inline constexpr CodeTable kCodeTables[] = {{437, 1}, {850, 3}, {860, 7},
                                            {863, 8}, {865, 9}, {858, 44}};

/// The italic table, whose upper half is the lower one, slanted.
inline constexpr int kItalicTable = 0;

/// Nothing for one that is not known here.
constexpr std::optional<int> codeTableOf(int number) {
  if (number == 0) return kItalicTable;
  for (const CodeTable& table : kCodeTables) {
    if (table.number == number) return table.page;
  }
  return {};
}

}  // namespace paperway
