#include "backends/data/memory/memory_table.h"

#include <gtest/gtest.h>
#include <utility>

#include "support/error_of.h"
#include "support/shown.h"

namespace paperway {
namespace {

constexpr char kNoRow[] = "The recordset has no current row.";

TEST(MemoryTable, GivesBackEveryKindOfValueAndWalksLikeAnyRecordset) {
  MemoryTable table({"Name", "Qty", "Rate", "On"},
                    {{"Asha", 3, 2.5, Date{2026, 3, 5}}, {{}, {}, {}, {}}, {"", -1, 0.0, Date{}}});
  std::string cells;
  for (; !table.Eof(); table.MoveNext()) {
    for (std::size_t i = 0; i < table.fieldCount(); ++i) cells += shown(table.value(i)) + ", ";
  }
  EXPECT_EQ(cells, "t Asha, i 3, r 2.5, d 3/5/2026, - , - , - , - , t , i -1, r 0, d 12/30/1899, ");
  EXPECT_EQ(errorOf([&] { table.MoveNext(); }), kNoRow);
  EXPECT_EQ(errorOf([&] { table.value(0); }), kNoRow);
  table.MoveLast();
  EXPECT_EQ(table.value(1).integer(), -1);
  EXPECT_EQ(table.RecordCount(), 3);
  table.MoveFirst();
  EXPECT_EQ(table.Fields().Item("NAME").Value().text(), "Asha");
  EXPECT_EQ(errorOf([&] { table.Fields().Item("Nmae"); }),
            "There is no field \"Nmae\"; the fields are Name, Qty, Rate, On.");
}

TEST(MemoryTable, AnEmptyOneIsAtItsEnd) {
  MemoryTable table({"Name"});
  table.MoveFirst();
  EXPECT_TRUE(table.Eof());
  EXPECT_EQ(table.RecordCount(), 0);
  EXPECT_EQ(errorOf([&] { table.MoveLast(); }), kNoRow);
  const std::vector<Value> row = {"a", "b"};
  EXPECT_EQ(errorOf([&] { table.addRow(row); }),
            "A row of 2 values does not fit a table of 1 fields.");
}

TEST(MemoryTable, TextsStayWhereTheyAreWhileRowsAreAdded) {
  MemoryTable table({"Short", "Long"});
  const std::string longText(100'000, 'x');
  table.addRow({"first", longText});
  const std::string_view first = table.value(0).text();
  for (int i = 0; i < 20'000; ++i) table.addRow({"filler text", i});
  MemoryTable moved = std::move(table);
  EXPECT_EQ(first, "first");
  EXPECT_EQ(moved.value(0).text().data(), first.data());
  EXPECT_EQ(moved.value(1).text(), longText);
}

}  // namespace
}  // namespace paperway
