#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace paperway::web {

/// A line of text on a page: what stands at its left, in its middle and at its right (UTF-8).
using MarkLine = std::array<std::string, 3>;
struct PageLines {
  MarkLine header;
  MarkLine footer;
};

/// How far the lines stand from the edges of the page, in inches.
struct LineMargins {
  double top = 0;
  double bottom = 0;
  double left = 0;
  double right = 0;
};

std::size_t pageCount(const std::string& pdf);

/// The pages of PDF documents behind one another, with their header and footer. An AutomationError
/// when one is no PDF.
std::string joinedPdf(const std::vector<std::string>& documents, const std::string& title,
                      const LineMargins& margins,
                      const std::function<PageLines(std::size_t page)>& lines);

}  // namespace paperway::web
