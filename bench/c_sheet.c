/* The ledger as a workbook by libxlsxwriter, row by row (its constant_memory mode): the same cells
 * with the same looks as the command "sheet" writes.
 */
#include <xlsxwriter.h>

#include "c_ledger.h"

enum { COLUMNS = 9, HEAD = 2 };

static const char* const kHeadings[COLUMNS] = {"#",    "Voucher",  "Date", "Customer", "Region",
                                               "Item", "Quantity", "Rate", "Amount"};
static const char* const kFonts[COLUMNS] = {NULL,           NULL,           "Courier New",
                                            "Arial Narrow", "Arial Narrow", "Arial Narrow",
                                            "Courier New",  "Courier New",  "Courier New"};
static const double kWidths[COLUMNS] = {8.43, 14.4, 13.2, 30, 15.6, 31.2, 12, 12, 20.4};

static lxw_format* make_format(lxw_workbook* book, int column, int bold) {
  lxw_format* format = workbook_add_format(book);
  if (kFonts[column] != NULL) format_set_font_name(format, kFonts[column]);
  if (bold) format_set_bold(format);
  if (column == 6) format_set_num_format(format, "#,##0");
  if (column > 6) format_set_num_format(format, "#,##0.00");
  format_set_border(format, LXW_BORDER_THIN);
  return format;
}

static const char* text(sqlite3_stmt* row, int field) {
  const unsigned char* value = sqlite3_column_text(row, field);
  return value == NULL ? "" : (const char*)value;
}

static lxw_row_t write_rows(lxw_worksheet* sheet, sqlite3_stmt* rows, lxw_format** formats) {
  lxw_row_t at = HEAD + 1;
  char date[32];
  for (; sqlite3_step(rows) == SQLITE_ROW; ++at) {
    worksheet_write_number(sheet, at, 0, at - HEAD, formats[0]);
    worksheet_write_string(sheet, at, 1, text(rows, VOUCHER), formats[1]);
    format_date(date, sizeof date, text(rows, DATE));
    worksheet_write_string(sheet, at, 2, date, formats[2]);
    worksheet_write_string(sheet, at, 3, text(rows, CUSTOMER), formats[3]);
    worksheet_write_string(sheet, at, 4, text(rows, REGION), formats[4]);
    worksheet_write_string(sheet, at, 5, text(rows, ITEM), formats[5]);
    worksheet_write_number(sheet, at, 6, sqlite3_column_double(rows, QUANTITY), formats[6]);
    worksheet_write_number(sheet, at, 7, sqlite3_column_double(rows, RATE), formats[7]);
    worksheet_write_number(sheet, at, 8, sqlite3_column_double(rows, AMOUNT), formats[8]);
  }
  return at;
}

static void write_totals(lxw_worksheet* sheet, lxw_row_t at, lxw_format** formats) {
  for (lxw_col_t i = 0; i < COLUMNS; ++i) {
    char formula[64];
    if (i != 6 && i != 8) {
      worksheet_write_blank(sheet, at, i, formats[i]);
      continue;
    }
    snprintf(formula, sizeof formula, "=SUM(%c%d:%c%u)", 'A' + i, HEAD + 2, 'A' + i, at);
    worksheet_write_formula(sheet, at, i, formula, formats[i]);
  }
}

int main(int argc, char** argv) {
  sqlite3* database = NULL;
  sqlite3_stmt* rows = NULL;
  lxw_workbook_options options = {.constant_memory = LXW_TRUE};
  lxw_format* formats[COLUMNS];

  if (argc != 5) die("usage", "c_sheet DATABASE FILE TITLE SUBTITLE");
  if (sqlite3_open_v2(argv[1], &database, SQLITE_OPEN_READONLY, NULL) != SQLITE_OK ||
      sqlite3_prepare_v2(database, SQL, -1, &rows, NULL) != SQLITE_OK) {
    die(argv[1], sqlite3_errmsg(database));
  }
  lxw_workbook* book = workbook_new_opt(argv[2], &options);
  lxw_worksheet* sheet = workbook_add_worksheet(book, NULL);
  for (lxw_col_t i = 0; i < COLUMNS; ++i) worksheet_set_column(sheet, i, i, kWidths[i], NULL);
  worksheet_write_string(sheet, 0, 0, argv[3], NULL);
  worksheet_write_string(sheet, 1, 0, argv[4], NULL);
  for (lxw_col_t i = 0; i < COLUMNS; ++i) {
    worksheet_write_string(sheet, HEAD, i, kHeadings[i], make_format(book, i, 1));
    formats[i] = make_format(book, i, 0);
  }
  write_totals(sheet, write_rows(sheet, rows, formats), formats);
  if (workbook_close(book) != LXW_NO_ERROR) die(argv[2], "cannot be written");
  sqlite3_finalize(rows);
  sqlite3_close(database);
  return 0;
}
