/* Stickers of three lines, four side by side and twelve rows to the sheet, as a C programmer would
 * write them: sqlite3_step, one snprintf a line, fwrite. The same bytes as the command "stickers".
 */
#include "c_ledger.h"

enum { COLUMNS = 4, ROWS = 12, LENGTH = 20, GAP = 3, LINES = 3, BLANK = 4 };

static char lines[LINES][COLUMNS * (LENGTH + GAP) + 1];

static void put_cell(int line, int column, const char* text) {
  snprintf(lines[line] + column * (LENGTH + GAP), LENGTH + GAP + 1, "%-*.*s%*s", LENGTH, LENGTH,
           text, GAP, "");
}

static void end_row(FILE* out, int row) {
  for (int i = 0; row > 0 && i < BLANK; i++) fputs("\r\n", out);
  for (int i = 0; i < LINES; i++) {
    fputs(lines[i], out);
    fputs("\r\n", out);
  }
  if (row == ROWS - 1) fputs("\f\r\n", out);
}

int main(int argc, char** argv) {
  sqlite3* database = NULL;
  sqlite3_stmt* rows = NULL;
  char text[256], number[64];
  int column = 0, row = 0;

  if (argc != 3) die("usage", "c_stickers DATABASE FILE");
  if (sqlite3_open_v2(argv[1], &database, SQLITE_OPEN_READONLY, NULL) != SQLITE_OK ||
      sqlite3_prepare_v2(database, SQL, -1, &rows, NULL) != SQLITE_OK) {
    die(argv[1], sqlite3_errmsg(database));
  }
  FILE* out = fopen(argv[2], "wb");
  if (out == NULL) die(argv[2], "cannot be opened");
  while (sqlite3_step(rows) == SQLITE_ROW) {
    copy_text(text, sizeof text, rows, CUSTOMER);
    put_cell(0, column, text);
    copy_text(text, sizeof text, rows, ITEM);
    put_cell(1, column, text);
    format_number(number, sizeof number, sqlite3_column_double(rows, AMOUNT), 2);
    put_cell(2, column, number);
    if (++column < COLUMNS) continue;
    end_row(out, row);
    column = 0;
    row = (row + 1) % ROWS;
  }
  if (column > 0) end_row(out, row++);
  if (row % ROWS > 0) fputs("\f\r\n", out);
  if (fclose(out) != 0) die(argv[2], "cannot be written");
  sqlite3_finalize(rows);
  sqlite3_close(database);
  return 0;
}
