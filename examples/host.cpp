// A complete host: the sales of a SQLite database as a paged report.
//
//   host ledger.db ledger.txt

#include <exception>
#include <iostream>
#include <paperway/class1.h>
#include <paperway/headless.h>
#include <paperway/sqlite.h>
#include <paperway/storage.h>

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: host DATABASE REPORT\n";
    return 2;
  }
  const paperway::SqliteDatabase database(argv[1]);
  paperway::SqliteRecordset columns(database, "SELECT * FROM columns");
  paperway::SqliteRecordset rows(database, "SELECT * FROM sales");

  paperway::desktop::Storage files;
  paperway::headless::Headless machine("host-files", files);  // a machine without a screen
  paperway::Class1 report(machine.platform());
  report.Set_Repot_Format(columns);
  if (!report.formatIsWhole()) throw *report.lastFailure();  // an earlier report stays
  report.Text_Rpt({.Rs = rows,
                   .TextFileName = argv[2],
                   .Tital1 = "Sales ledger",
                   .Tital5 = "By region and customer",
                   .MPLine = 60,
                   .Srno = 1,
                   .C_80_96_136 = 136});
  if (report.lastFailure() != nullptr) throw *report.lastFailure();
  return 0;
} catch (const std::exception& error) {
  std::cerr << "host: " << error.what() << "\n";
  return 1;
}
