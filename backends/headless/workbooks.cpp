#include <utility>

#include "paperway/headless.h"

namespace paperway::headless {

class Workbooks::Writer : public Workbook {
 public:
  Writer(Workbooks& workbooks, Book book) : workbooks_(workbooks), book_(std::move(book)) {}

  void emptyCell(std::size_t format) override { put(format, {}); }
  void textCell(std::size_t format, std::string_view text) override {
    put(format, std::string(text));
  }
  void numberCell(std::size_t format, double number) override { put(format, number); }
  void dateCell(std::size_t format, const Date& date) override { put(format, date); }
  void sumCell(std::size_t format, std::int64_t rows, double value) override {
    put(format, value, "=SUM(R[-" + std::to_string(rows) + "]C:R[-1]C)");
  }

  void endRow() override {
    book_.rows.push_back(std::move(row_));
    row_.clear();
  }

  void save() override {
    if (workbooks_.failure) throw AutomationError(*workbooks_.failure);
    workbooks_.books.push_back(std::move(book_));
  }

 private:
  void put(std::size_t format, Value value, std::string formula = "") {
    row_.push_back({std::move(value), std::move(formula), book_.plan.formats.at(format)});
  }

  Workbooks& workbooks_;
  Book book_;
  std::vector<Cell> row_;
};

std::unique_ptr<Workbook> Workbooks::create(const WorkbookTarget& target, const SheetPlan& plan) {
  return std::make_unique<Writer>(*this, Book{.file = target.file, .plan = plan, .rows = {}});
}

}  // namespace paperway::headless
