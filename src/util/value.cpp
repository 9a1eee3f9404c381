#include "paperway/value.h"

namespace paperway {

ValueView::ValueView(const Value& value) : ValueView() {
  switch (value.index()) {
    case 1:
      *this = ValueView(std::string_view(std::get<std::string>(value)));
      break;
    case 2:
      *this = ValueView(std::get<double>(value));
      break;
    case 3:
      *this = ValueView(std::get<std::int64_t>(value));
      break;
    case 4:
      *this = ValueView(std::get<Date>(value));
      break;
    default:
      break;
  }
}

Value ValueView::toValue() const {
  switch (kind_) {
    case Kind::text:
      return std::string(text_);
    case Kind::real:
      return real_;
    case Kind::integer:
      return integer_;
    case Kind::date:
      return date_;
    case Kind::null:
      break;
  }
  return std::monostate{};
}

}  // namespace paperway
