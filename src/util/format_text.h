#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/value.h"
#include "util/format_symbols.h"

namespace paperway {

/// A compiled text pattern: a section for texts and, if there is one, a section for null and the
/// empty text.
class TextFormat {
 public:
  explicit TextFormat(Symbols pattern);

  void append(std::string& out, const ValueView& value) const;

 private:
  struct Step {
    enum Kind : char { literal, place, optionalPlace, wholeText } kind;
    char character = '\0';
  };

  struct Section {
    enum Case : char { asItIs, lower, upper } letters = asItIs;
    bool fromLeft = false;  // places are filled from the left, else from the right
    std::size_t places = 0;
    std::vector<Step> steps;

    explicit Section(Symbols symbols);
    void append(std::string& out, std::string_view text) const;

   private:
    void readMark(char mark);
    void fill(std::string& out, std::string_view text) const;
  };

  Section texts_;
  std::optional<Section> empty_;
};

}  // namespace paperway
