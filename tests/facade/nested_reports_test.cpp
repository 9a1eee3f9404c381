#include <functional>
#include <gtest/gtest.h>

#include "support/report_fixture.h"

namespace paperway {
namespace {

/// Rows before each of which something else happens.
class InterruptedRows : public Recordset {
 public:
  InterruptedRows(MemoryTable rows, std::function<void()> between)
      : rows_(std::move(rows)), between_(std::move(between)) {}

  void MoveFirst() override { rows_.MoveFirst(); }
  void MoveLast() override { rows_.MoveLast(); }
  void MoveNext() override {
    rows_.MoveNext();
    between_();
  }
  bool Eof() const override { return rows_.Eof(); }
  std::int64_t RecordCount() const override { return rows_.RecordCount(); }
  std::size_t fieldCount() const override { return rows_.fieldCount(); }
  std::string_view fieldName(std::size_t ordinal) const override {
    return rows_.fieldName(ordinal);
  }
  ValueView value(std::size_t ordinal) const override { return rows_.value(ordinal); }

 private:
  MemoryTable rows_;
  std::function<void()> between_;
};

class NestedReports : public ReportTest {
 protected:
  static MemoryTable sales() {
    return MemoryTable({"item", "amount", "town"},
                       {{"Pen", 1.5, "Agra"},
                        {"Pen", 2.0, "Agra"},
                        {"Ink", 4.0, "Bhopal"},
                        {"Ink", 8.0, "Bhopal"}});
  }

  /// Writes a report whose groups, duplicates, totals and pages all have a state of their own.
  void write(Class1& writer, Recordset& rows, const std::string& file) {
    MemoryTable columns =
        columnTable({{"item", "Item", "6", "T", "L", "1", "N", "", "", "", "", "", "", "Y", "item"},
                     {"amount", "Amount", "8", "N", "R", "0", "Y", "Y", "town", "", "0.00"}});
    writer.Set_Repot_Format(columns);
    writer.Text_Rpt({.Rs = rows, .TextFileName = path(file), .MPLine = 12, .Srno = 1});
  }

  std::string alone() {
    MemoryTable rows = sales();
    write(class1_, rows, "alone.txt");
    return bytesOf(path("alone.txt"));
  }

  void expectUntouched(Class1& inner) {
    InterruptedRows rows(sales(), [&] {
      MemoryTable others = sales();
      write(inner, others, "inner.txt");
    });
    write(class1_, rows, "outer.txt");
    EXPECT_EQ(bytesOf(path("outer.txt")), alone());
    EXPECT_EQ(bytesOf(path("inner.txt")), alone());
  }
};

TEST_F(NestedReports, DoNotTouchOneAnother) {
  Class1 other(machine_.platform());
  expectUntouched(other);
}

TEST_F(NestedReports, OfOneObjectNeither) {
  expectUntouched(class1_);
}

}  // namespace
}  // namespace paperway
