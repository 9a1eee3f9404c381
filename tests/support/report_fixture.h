#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/class1_test.h"
#include "support/column_table.h"

namespace paperway {

inline void replaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

/// Control strings by their names in angle brackets, line ends as LF: a report to read.
inline std::string readable(std::string bytes) {
  const DOSEFONTcHR font;
  const std::vector<std::pair<std::string, std::string>> names = {
      {font.BBon, "<BBon>"},
      {font.BBoff, "<BBoff>"},
      {font.C96, "<C96>"},
      {font.C80, "<C80>"},
      {font.Bon, "<Bon>"},
      {font.Boff, "<Boff>"},
      {font.Con, "<Con>"},
      {font.Coff, "<Coff>"},
      {"\x0C", "<FF>"},
      {"\r\n", "\n"},
      {"\r", "<lone CR>"},
  };
  for (const auto& [from, to] : names) replaceAll(bytes, from, to);
  return bytes;
}

class ReportTest : public Class1Test {
 protected:
  static std::string golden(const std::string& name) {
    return bytesOf(PAPERWAY_SOURCE_DIR "/tests/golden/" + name);
  }

  void setColumns(const Columns& columns) {
    MemoryTable table = columnTable(columns);
    class1_.Set_Repot_Format(table);
  }

  /// The report of these rows as its bytes.
  std::string report(const Columns& columns, TextRptArguments arguments) {
    setColumns(columns);
    arguments.TextFileName = file_;
    class1_.Text_Rpt(arguments);
    nextSerial_ = arguments.Srno;
    return bytesOf(file_);
  }

  const std::string file_ = path("report.txt");
  std::int32_t nextSerial_ = 0;
};

}  // namespace paperway
