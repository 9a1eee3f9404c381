/* The ledger report of examples/ledger written by a plain C program, for comparison: sqlite3_step,
 * one snprintf a cell, stdio with a buffer of 64 KiB. Byte for byte what the library writes.
 *
 *   c_writer DATABASE REPORT TITLE SUBTITLE
 *   c_writer DATABASE              steps through the rows and writes nothing
 */
#include "c_ledger.h"

#define LINES_A_PAGE 60
#define BOLD_ON "\033E"
#define BOLD_OFF "\033F"
#define BIG_ON "\016\033E\033G"
#define BIG_OFF "\024\033F\033H"
#define CONDENSED_ON "\017"
#define CONDENSED_OFF "\022"

/* A column of the report; `level` is set where group totals are printed. */
struct column {
  const char* heading;
  int width;
  int space;
  int right;
  int totals;
};

static const struct column columns[] = {
    {"Voucher", 12, 1, 0, 1}, {"Date", 11, 1, 0, 0},   {"Customer", 25, 1, 0, 0},
    {"Region", 13, 1, 0, 0},  {"Item", 26, 1, 0, 1},   {"Quantity", 10, 1, 1, 1},
    {"Rate", 10, 1, 1, 0},    {"Amount", 17, 0, 1, 1},
};
#define COLUMNS ((int)(sizeof columns / sizeof columns[0]))
#define LINE_WIDTH 136

struct totals {
  int bills;
  int items;
  double quantity;
  double amount;
};

struct report {
  FILE* out;
  const char* title;
  const char* subtitle;
  int page;
  uint8_t lines;
  uint8_t head_lines;
  int64_t serial;
};

static int put_cell(char* line, size_t size, int column, const char* text) {
  const struct column* c = &columns[column];
  if (c->right) {
    int length = (int)strlen(text);
    if (length > c->width) text += length - c->width;
    return snprintf(line, size, "%*s%*s", c->width, text, c->space, "");
  }
  return snprintf(line, size, "%-*.*s%*s", c->width, c->width, text, c->space, "");
}

static void put_line(struct report* r, const char* line) {
  fputs(line, r->out);
  fputs("\r\n", r->out);
}

static void put_rule(struct report* r) {
  char rule[LINE_WIDTH + 1];
  memset(rule, '-', LINE_WIDTH);
  rule[LINE_WIDTH] = 0;
  put_line(r, rule);
}

static void put_bold(struct report* r, const char* text) {
  fprintf(r->out, BOLD_ON "%s" BOLD_OFF "\r\n", text);
  r->lines++;
}

static void put_head(struct report* r) {
  char page[32];
  char line[LINE_WIDTH + 1];
  int n;
  r->lines = 6;
  fprintf(r->out, BIG_ON "%s" BIG_OFF "\r\n", r->title);
  fprintf(r->out, BOLD_ON "%s" BOLD_OFF "\r\n", r->subtitle);
  snprintf(page, sizeof page, "Page No # %04d", r->page);
  fprintf(r->out, BOLD_ON BOLD_OFF "%*s\r\n", LINE_WIDTH, page);
  put_rule(r);
  n = snprintf(line, sizeof line, "   # ");
  for (int i = 0; i < COLUMNS; i++) {
    n += put_cell(line + n, sizeof line - (size_t)n, i, columns[i].heading);
  }
  fprintf(r->out, BOLD_ON "%s" BOLD_OFF "\r\n", line);
  put_rule(r);
  r->head_lines = r->lines;
}

/* The figures of a total under their columns; NULL leaves a place blank. */
static void total_line(char* line, size_t size, const char* const* figures) {
  int n = snprintf(line, size, "     ");
  for (int i = 0; i < COLUMNS; i++) {
    n += put_cell(line + n, size - (size_t)n, i, figures[i] == NULL ? "" : figures[i]);
  }
}

static void group_total(char* line, size_t size, const struct totals* t) {
  char bills[32], items[32], quantity[64], amount[64];
  const char* figures[COLUMNS] = {bills, NULL, NULL, NULL, items, quantity, NULL, amount};
  snprintf(bills, sizeof bills, "Bills %d", t->bills);
  snprintf(items, sizeof items, "Lines %d", t->items);
  format_number(quantity, sizeof quantity, t->quantity, 0);
  format_number(amount, sizeof amount, t->amount, 2);
  total_line(line, size, figures);
}

static void group_rule(char* line, size_t size, char sign) {
  int n = snprintf(line, size, "     ");
  for (int i = 0; i < COLUMNS; i++) {
    int width = columns[i].width + columns[i].space;
    memset(line + n, columns[i].totals ? sign : ' ', (size_t)width);
    n += width;
  }
  line[n] = 0;
}

static void put_customer_total(struct report* r, struct totals* t) {
  char total[LINE_WIDTH + 1], rule[LINE_WIDTH + 1];
  group_total(total, sizeof total, t);
  group_rule(rule, sizeof rule, '-');
  put_line(r, rule);
  put_line(r, total);
  put_line(r, rule);
  r->lines += 3;
  memset(t, 0, sizeof *t);
}

static void put_region_total(struct report* r, struct totals* t) {
  char total[LINE_WIDTH + 1], rule[LINE_WIDTH + 1];
  group_total(total, sizeof total, t);
  group_rule(rule, sizeof rule, '=');
  put_line(r, total);
  put_line(r, rule);
  r->lines += 3;
  memset(t, 0, sizeof *t);
}

static void end_page(struct report* r, double amount) {
  char line[LINE_WIDTH + 1], figure[64];
  const char* figures[COLUMNS] = {NULL, NULL, NULL, NULL, NULL, NULL, NULL, figure};
  format_number(figure, sizeof figure, amount, 2);
  total_line(line, sizeof line, figures);
  put_rule(r);
  put_line(r, line);
  put_rule(r);
  r->page++;
  put_line(r, CONDENSED_OFF "\f" CONDENSED_ON);
  put_head(r);
  put_line(r, line);
  r->lines = (uint8_t)(r->head_lines + 1);
}

static void put_row(struct report* r, sqlite3_stmt* row, const char* customer, const char* region,
                    const char* voucher, int repeated, double quantity, double amount) {
  char line[LINE_WIDTH + 1], text[128], digits[32];
  const size_t size = sizeof line;
  int n;
  snprintf(digits, sizeof digits, "%4lld", (long long)r->serial);
  n = snprintf(line, size, "%s ", digits + strlen(digits) - 4);
  if (repeated) {
    for (int i = 0; i < 4; i++) n += put_cell(line + n, size - (size_t)n, i, "");
  } else {
    n += put_cell(line + n, size - (size_t)n, 0, voucher);
    format_date(text, sizeof text, (const char*)sqlite3_column_text(row, DATE));
    n += put_cell(line + n, size - (size_t)n, 1, text);
    n += put_cell(line + n, size - (size_t)n, 2, customer);
    n += put_cell(line + n, size - (size_t)n, 3, region);
  }
  copy_text(text, sizeof text, row, ITEM);
  n += put_cell(line + n, size - (size_t)n, 4, text);
  format_number(text, sizeof text, quantity, 0);
  n += put_cell(line + n, size - (size_t)n, 5, text);
  format_number(text, sizeof text, sqlite3_column_double(row, RATE), 2);
  n += put_cell(line + n, size - (size_t)n, 6, text);
  format_number(text, sizeof text, amount, 2);
  put_cell(line + n, size - (size_t)n, 7, text);
  put_line(r, line);
  r->lines++;
  r->serial++;
}

static void put_grand_total(struct report* r, double quantity, double amount) {
  char line[LINE_WIDTH + 1], first[64], second[64];
  const char* figures[COLUMNS] = {NULL, NULL, NULL, NULL, NULL, first, NULL, second};
  format_number(first, sizeof first, quantity, 0);
  format_number(second, sizeof second, amount, 2);
  total_line(line, sizeof line, figures);
  put_rule(r);
  put_line(r, line);
  put_rule(r);
  put_line(r, CONDENSED_OFF "\f");
}

static void add_row(struct totals* t, int repeated, double quantity, double amount) {
  t->bills += !repeated;
  t->items++;
  t->quantity += quantity;
  t->amount += amount;
}

static void write_report(struct report* r, sqlite3_stmt* rows) {
  char region[128], customer[128], voucher[64];
  char last_region[128] = "", last_customer[128] = "", last_voucher[64] = "";
  struct totals customer_totals = {0}, region_totals = {0}, grand = {0};
  int any = 0;

  fprintf(r->out, "%17s" CONDENSED_ON "\r\n", "");
  put_head(r);
  while (sqlite3_step(rows) == SQLITE_ROW) {
    double quantity = sqlite3_column_double(rows, QUANTITY);
    double amount = sqlite3_column_double(rows, AMOUNT);
    int new_region, new_customer, repeated;
    copy_text(region, sizeof region, rows, REGION);
    copy_text(customer, sizeof customer, rows, CUSTOMER);
    copy_text(voucher, sizeof voucher, rows, VOUCHER);
    new_region = !any || strcasecmp(region, last_region) != 0;
    new_customer = new_region || strcasecmp(customer, last_customer) != 0;
    repeated = any && strcmp(voucher, last_voucher) == 0;

    if (any && new_customer) put_customer_total(r, &customer_totals);
    if (any && new_region) put_region_total(r, &region_totals);
    if (new_region) put_bold(r, region);
    if (new_customer) put_bold(r, customer);
    put_row(r, rows, customer, region, voucher, repeated, quantity, amount);
    add_row(&customer_totals, repeated, quantity, amount);
    add_row(&region_totals, repeated, quantity, amount);
    add_row(&grand, repeated, quantity, amount);
    if (LINES_A_PAGE <= r->lines + 6) end_page(r, grand.amount);

    strcpy(last_region, region);
    strcpy(last_customer, customer);
    strcpy(last_voucher, voucher);
    any = 1;
  }
  put_customer_total(r, &customer_totals);
  if (any) put_region_total(r, &region_totals);
  put_grand_total(r, grand.quantity, grand.amount);
}

/* What reading alone costs. */
static void read_rows(sqlite3_stmt* rows) {
  long long count = 0;
  while (sqlite3_step(rows) == SQLITE_ROW) count++;
  printf("%lld rows\n", count);
}

int main(int argc, char** argv) {
  static char buffer[64 * 1024];
  sqlite3* database = NULL;
  sqlite3_stmt* rows = NULL;
  struct report report = {.page = 1, .serial = 1};

  if (argc != 2 && argc != 5) die("usage", "c_writer DATABASE [REPORT TITLE SUBTITLE]");
  if (sqlite3_open_v2(argv[1], &database, SQLITE_OPEN_READONLY, NULL) != SQLITE_OK ||
      sqlite3_prepare_v2(database, SQL, -1, &rows, NULL) != SQLITE_OK) {
    die(argv[1], sqlite3_errmsg(database));
  }
  if (argc == 2) {
    read_rows(rows);
  } else {
    report.title = argv[3];
    report.subtitle = argv[4];
    report.out = fopen(argv[2], "wb");
    if (report.out == NULL) die(argv[2], "cannot be opened");
    setvbuf(report.out, buffer, _IOFBF, sizeof buffer);
    write_report(&report, rows);
    if (fclose(report.out) != 0) die(argv[2], "cannot be written");
  }
  sqlite3_finalize(rows);
  if (sqlite3_close(database) != SQLITE_OK) die(argv[1], sqlite3_errmsg(database));
  return 0;
}
