#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperway {

/// A paged HTML document cut at its page breaks, so that a long one can be worked on by parts. The
/// document outlives the object.
class HtmlPieces {
 public:
  /// Bytes of any document; one without page breaks is a single piece.
  HtmlPieces(std::string_view document, std::size_t pagesOfAPiece);

  std::size_t count() const { return pieces_.size(); }
  /// A document of its own: what stands before the first page, style sheets and all, then the
  /// pages.
  std::string piece(std::size_t index) const;

 private:
  std::string_view head_;  // stands before each piece but the first, which has it
  std::vector<std::string_view> pieces_;
};

}  // namespace paperway
