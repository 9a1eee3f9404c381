#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "backends/data/memory/memory_table.h"
#include "backends/headless/headless.h"
#include "facade/class1.h"
#include "support/error_of.h"
#include "support/test_folder.h"
#include "util/output_file.h"

namespace paperway {

/// The columns of a report, each a row of the column table from its first field on; the fields that
/// a row leaves out, and empty ones, are null.
using Columns = std::vector<std::vector<std::string>>;

inline MemoryTable columnTable(const Columns& columns) {
  const std::vector<std::string> names = {
      "fNM",           "fHeder", "Sz",    "Dtyp", "Ali",        "Spc",        "Lt",
      "AllPageTot",    "GTot1",  "GTot2", "Frmt", "BoldGroup1", "BoldGroup2", "DupPrintYN",
      "DupPrintField", "FontNm"};
  MemoryTable table(names);
  for (const auto& column : columns) {
    std::vector<Value> row(names.size());
    for (std::size_t i = 0; i < column.size(); ++i) {
      if (!column[i].empty()) row[i] = column[i];
    }
    table.addRow(row);
  }
  return table;
}

/// Control strings by their names in angle brackets, line ends as LF: a report to read.
inline std::string readable(std::string bytes) {
  const DOSEFONTcHR font;
  const std::vector<std::pair<std::string, std::string>> names = {
      {font.BBon, "<BBon>"}, {font.BBoff, "<BBoff>"}, {font.C96, "<C96>"}, {font.C80, "<C80>"},
      {font.Bon, "<Bon>"},   {font.Boff, "<Boff>"},   {font.Con, "<Con>"}, {font.Coff, "<Coff>"},
      {"\x0C", "<FF>"},      {"\r\n", "\n"},          {"\r", "<lone CR>"},
  };
  for (const auto& [from, to] : names) {
    for (std::size_t at = 0; (at = bytes.find(from, at)) != std::string::npos; at += to.size()) {
      bytes.replace(at, from.size(), to);
    }
  }
  return bytes;
}

/// A Class1 on a machine without a screen, and a folder that is gone after the test.
class ReportTest : public ::testing::Test {
 protected:
  std::string file(const std::string& name) const { return (folder_.path / name).string(); }
  std::string bytesOf(const std::string& path) const { return readFile(path, "test"); }
  static std::string golden(const std::string& name) {
    return readFile(std::filesystem::path(PAPERWAY_SOURCE_DIR) / "tests/golden" / name, "test");
  }

  /// The report of these rows as its bytes.
  std::string report(const Columns& columns, TextRptArguments arguments) {
    MemoryTable table = columnTable(columns);
    class1_.Set_Repot_Format(table);
    arguments.TextFileName = file("report.txt");
    class1_.Text_Rpt(arguments);
    nextSerial_ = arguments.Srno;
    return bytesOf(arguments.TextFileName);
  }

  TestFolder folder_;
  headless::Headless machine_{folder_.path};
  Class1 class1_{machine_.platform()};
  std::int32_t nextSerial_ = 0;
};

}  // namespace paperway
