#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "backends/data/workbook/number_format.h"
#include "paperway/platform/workbook.h"

namespace paperway::workbook {

/// The fonts and number formats of a workbook's cell formats, each once.
struct LookTables {
  struct Look {
    std::size_t font;    // in `fonts`
    std::size_t number;  // in `numbers`
    bool grid;
  };

  explicit LookTables(const std::vector<CellFormat>& formats) {
    for (const CellFormat& format : formats) {
      looks.push_back({placeIn(fonts, {format.font, format.bold}),
                       placeIn(numbers, format.dateFormat.empty() ? formatCode(format.numberFormat)
                                                                  : dateCode(format.dateFormat)),
                       format.grid});
    }
  }

  std::vector<std::pair<std::string, bool>> fonts{{"", false}};  // name, bold
  std::vector<std::string> numbers{"General"};                   // format codes
  std::vector<Look> looks;                                       // of each format

 private:
  template <class Item>
  static std::size_t placeIn(std::vector<Item>& items, const Item& item) {
    const auto found = std::find(items.begin(), items.end(), item);
    const auto place = static_cast<std::size_t>(found - items.begin());
    if (found == items.end()) items.push_back(item);
    return place;
  }
};

}  // namespace paperway::workbook
