/* The ledger of examples/ledger as HTML tables, and as a salary sheet, written by a plain C
 * program, for comparison: sqlite3_step, one fprintf a cell, stdio with a buffer of 64 KiB. Byte
 * for byte what the library writes on A4 under the page set-up that nobody has changed.
 *
 *   c_html table|salary DATABASE FILE TITLE SUBTITLE
 */
#include "c_ledger.h"

#define ROW 310 /* twips */

struct column {
  const char* heading;
  int width;
  int right;
  int totals; /* in groups */
  const char* font;
  char type;
};

static const struct column columns[] = {
    {"Voucher", 12, 0, 1, "Courier New", 'T'},   {"Date", 11, 0, 0, "Courier New", 'D'},
    {"Customer", 25, 0, 0, "Arial Narrow", 'T'}, {"Region", 13, 0, 0, "Arial Narrow", 'T'},
    {"Item", 26, 0, 1, "Arial Narrow", 'T'},     {"Quantity", 10, 1, 1, "Courier New", 'N'},
    {"Rate", 10, 1, 0, "Courier New", 'N'},      {"Amount", 17, 1, 1, "Courier New", 'N'},
};
#define COLUMNS ((int)(sizeof columns / sizeof columns[0]))

struct totals {
  int bills;
  int items;
  double quantity;
  double amount;
};

static FILE* out;
static int salary;
static char head[8192];
static int used, head_used, page_height;
static long long serial = 1;
static double grand_quantity, grand_amount;

static void figures_of(const struct totals* t, char figures[COLUMNS][64]) {
  memset(figures, 0, COLUMNS * sizeof figures[0]);
  snprintf(figures[0], 64, "Bills %d", t->bills);
  snprintf(figures[4], 64, "Lines %d", t->items);
  format_number(figures[5], 64, t->quantity, 0);
  format_number(figures[7], 64, t->amount, 2);
}

static void make_table_head(const char* title, const char* subtitle) {
  const char* look =
      "cellpadding='0' cellspacing='0'  style='border-collapse: collapse;   id='AutoNumber1'  "
      "bordercolor='#000000'  height='10'>\r\n";
  int n = snprintf(head, sizeof head,
                   " <table  width = ' 975' border='0' %s<td>\r\n"
                   "<p align='center'><font face='Arial Narrow'><b>%s</b></font></p>\r\n"
                   "<p align='center'><font face='Arial Narrow'><b>%s</b></font></p>\r\n"
                   "</td>\r\n <table  width = ' 975' border='1' %s<tr>\r\n"
                   "<td><b>&nbsp;#&nbsp;</b></font></td>\r\n",
                   look, title, subtitle, look);
  for (int i = 0; i < COLUMNS; i++) {
    const struct column* c = &columns[i];
    const char* form =
        c->type == 'D' ? "<td width= %g>&nbsp;&nbsp;<font face='%s'><b>%s&nbsp;</b>"
        : c->right     ? "<td align='right' width= %g>&nbsp;<font face='%s'><b>%s</b>&nbsp;&nbsp;"
                       : "<td width= %g  >&nbsp;&nbsp;<font face='%s'><b>%s</b>&nbsp;";
    n += snprintf(head + n, sizeof head - (size_t)n, form, c->width * 7.5, c->font, c->heading);
    n += snprintf(head + n, sizeof head - (size_t)n, "</Font></td>\r\n");
  }
  snprintf(head + n, sizeof head - (size_t)n, "</tr>\r\n\r\n");
  fputs(
      "<STYLE TYPE  = 'text/css'>\r\np{\r\n    font-family:Arial Narrow;\r\n    margin-top: 1;\r\n"
      "    margin-bottom:1;\r\n    }\r\n</STYLE>\r\n<font face='Arial Narrow'>\r\n",
      out);
  page_height = 13958;
  head_used = 3 * ROW;
}

static void make_salary_head(const char* title, const char* subtitle) {
  const char* look =
      "cellpadding='0' cellspacing='0'  style='border-collapse: collapse;   id='AutoNumber1'  "
      "bordercolor='#C0C0C0'  height='10'>\r\n";
  int n = snprintf(head, sizeof head,
                   "<table  width = ' 780' border='0' %s<td>\r\n"
                   "<p align='left'><Q class=at1><b>%s</b></Q></p>\r\n"
                   "<p align='left'><Q class=at2><b>%s</b></Q></p>\r\n"
                   "</td>\r\n <table  width = ' 780' border='1' %s"
                   "<tr><td align='RIGHT'><Q class=srno1><b> # </b></td>\r\n",
                   look, title, subtitle, look);
  fputs(
      "<LINK href='plain.css' rel='stylesheet' type='Text/css'>\r\n<STYLE TYPE  = 'text/css'>\r\n"
      " p  {font-family:Arial Narrow;margin-top: 1;margin-bottom:1;\r\n"
      " td {table-layout:fixed; overflow:hidden; white-space:nowrap;}\r\n</STYLE>\r\n<style>\r\n",
      out);
  for (int i = 0; i <= COLUMNS; i++) {
    fprintf(out, ".a%d { font-family:%s ; Text-Align%s}\r\n", i, i < COLUMNS ? columns[i].font : "",
            i < COLUMNS && columns[i].right ? ":right;" : ": Left; ");
  }
  for (int i = 0; i <= COLUMNS; i++) {
    fprintf(out, ".aG%d { font-family: ; Text-Align:center; }\r\n", i + 1);
  }
  for (int i = 1; i <= 5; i++) fprintf(out, "Q.at%d { font-size: pt; font-family:; }\r\n", i);
  fputs(
      "Q.Bankline { font-size: 5pt; font-family:Arial; }\r\n"
      "Q.srno1 { font-size:  9pt; font-family:Arial; }\r\n"
      "Q.Srno { font-size:  9pt; font-family:; }\r\n",
      out);
  for (int i = 12; i <= 16; i += 2) {
    fprintf(out, "Q.G%d { font-size: %dpt; font-family:GujratiLys 030 Thin; }\r\n", i, i);
  }
  for (int i = 12; i <= 16; i += 2) {
    fprintf(out, "Q.H%d { font-size: %dpt; font-family:TORANGAMILO; }\r\n", i, i);
  }
  fputs("</style>\r\n<font face='Arial Narrow'>\r\n", out);
  for (int i = 0; i < COLUMNS; i++) {
    const struct column* c = &columns[i];
    const char* form = c->type == 'T'   ? "<td width= %d class=a%d><b>%s</b></td>\r\n"
                       : c->type == 'D' ? "<td width= %d class=a%d> <b>%s </b></td>\r\n"
                                        : "<td width= %d class=a%d> <b>%s</b></td>\r\n";
    n += snprintf(head + n, sizeof head - (size_t)n, form, c->width * 6, i, c->heading);
  }
  snprintf(head + n, sizeof head - (size_t)n, "</tr>\r\n\r\n");
  page_height = 14318;
  head_used = 5 * ROW;
}

/* --- rows of totals */

static void begin_row(void) {
  fputs(salary ? "<tr>\r\n<td></td>\r\n" : "<tr>\r\n<td align='right'></td>\r\n", out);
}

static void put_carry(void) {
  char figure[64];
  format_number(figure, sizeof figure, grand_amount, 2);
  begin_row();
  for (int i = 0; i < COLUMNS - 1; i++) {
    fputs(salary ? "<td>&nbsp</td>\r\n" : "<td align='right'>&nbsp</td>\r\n", out);
  }
  if (salary) {
    fprintf(out, "<td class=a7> %s</td>\r\n", figure);
  } else {
    fprintf(out, "<td align='right'>&nbsp;<font face='Courier New'>%s&nbsp;&nbsp;</font></td>\r\n",
            figure);
  }
  fputs("</tr>\r\n", out);
  used += ROW;
}

static void check_page(void) {
  if (used <= page_height) return;
  used = head_used;
  put_carry();
  fprintf(out, "</table> \r\n<p style = page-break-after:always> </p>\r\n%s", head);
  put_carry();
}

static void put_customer_total(struct totals* t, int within) {
  char figures[COLUMNS][64];
  figures_of(t, figures);
  begin_row();
  for (int i = 0; i < COLUMNS; i++) {
    if (!columns[i].totals) {
      fputs("<td></td>\r\n", out);
    } else if (salary) {
      fprintf(out, "<td class=a%d><b>%s</b></td>\r\n", i, figures[i]);
    } else {
      fprintf(out, "<td align='%s'><b><font face='%s'>%s&nbsp;&nbsp;</b>%s</td>\r\n",
              columns[i].right ? "right" : "left", columns[i].font, figures[i],
              within ? "</Font>" : "");
    }
  }
  fputs(within ? "</tr>\r\n" : "\r\n</tr>\r\n", out);
  used += ROW;
  memset(t, 0, sizeof *t);
}

static void put_region_total(struct totals* t, int last) {
  char figures[COLUMNS][64];
  figures_of(t, figures);
  begin_row();
  for (int i = 0; i < COLUMNS; i++) {
    if (!columns[i].totals) {
      fputs("<td></td>\r\n", out);
    } else if (salary) {
      fprintf(out, "<td class=a%d><b>%s</b></td>\r\n", i, figures[i]);
    } else if (last) {
      fprintf(out, "<td align='%s'><font face='%s'><b><font face='%s'>%s&nbsp;&nbsp;</b></td>\r\n",
              columns[i].right ? "right" : "left", columns[i].font, columns[i].font, figures[i]);
    } else {
      fprintf(out, "<td align='%s'><font face='%s'><b>%s&nbsp;&nbsp;</b></Font></td>\r\n",
              columns[i].right ? "right" : "left", columns[i].font, figures[i]);
    }
  }
  fputs(last ? "\r\n</tr>\r\n" : "</tr>\r\n", out);
  used += ROW;
  memset(t, 0, sizeof *t);
}

static void put_grand_total(void) {
  char figures[COLUMNS][64];
  memset(figures, 0, sizeof figures);
  format_number(figures[5], 64, grand_quantity, 0);
  format_number(figures[7], 64, grand_amount, 2);
  begin_row();
  for (int i = 0; i < COLUMNS; i++) {
    if (figures[i][0] == 0) {
      fputs(salary ? "<td>&nbsp</td>\r\n" : "<td align='right'>&nbsp</td>\r\n", out);
    } else if (salary) {
      fprintf(out, "<td class=a%d><b> %s</b></td>\r\n", i, figures[i]);
    } else {
      fprintf(out, "<td align='right'><b>&nbsp;<font face='%s'>%s&nbsp;&nbsp;</b></Font></td>\r\n",
              columns[i].font, figures[i]);
    }
  }
  fputs("</tr>\r\n</font>\r\n", out);
}

/* --- headings of groups */

static void put_region(const char* region) {
  if (salary) {
    fprintf(out, "<tr>\r\n<td align='left' colspan =  9 class=a3><b>%s</b></td>\r\n</tr>\r\n",
            region);
  } else {
    fprintf(out,
            "<tr>\r\n<td align='left' colspan =  9><b><font face='Arial Narrow'>%s</b></Font></td>"
            "\r\n</tr>\r\n",
            region);
  }
  used += ROW;
}

static void put_customer(const char* customer, int within) {
  if (salary) {
    if (!within) check_page();
    fprintf(out, "<tr>\r\n<td align='left' colspan =  9 class=a2><b>&nbsp;%s</b></td>\r\n</tr>\r\n",
            customer);
  } else {
    fprintf(out,
            "<tr>\r\n<td align='left' colspan =  9><font face='Arial Narrow'><b>%s</b>%s</td>\r\n"
            "</tr>\r\n",
            customer, within ? "</font>" : "");
  }
  used += ROW;
}

/* --- rows */

static void escape(char* to, size_t size, const char* from) {
  size_t n = 0;
  for (; *from != 0 && n + 7 < size; from++) {
    const char* name = *from == '<'   ? "&lt;"
                       : *from == '>' ? "&gt;"
                       : *from == '"' ? "&quot;"
                                      : NULL;
    if (name == NULL) {
      to[n++] = *from;
    } else {
      n += (size_t)snprintf(to + n, size - n, "%s", name);
    }
  }
  to[n] = 0;
}

static void put_cell(int i, const char* text) {
  const struct column* c = &columns[i];
  char escaped[512];
  if (!salary && c->right) {
    fprintf(out, "<td align='right'>&nbsp;<font face='%s'>%s&nbsp;&nbsp;</font></td>\r\n", c->font,
            text);
  } else if (!salary) {
    fprintf(out, "<td>&nbsp;&nbsp;<font face='%s'>%-*.*s%s</font></td>\r\n", c->font, c->width,
            c->width, text, c->type == 'T' ? "&nbsp;" : "");
  } else if (c->type == 'T') {
    escape(escaped, sizeof escaped, text);
    fprintf(out, "<td class=a%d> %s</td>\r\n", i, escaped);
  } else if (c->type == 'D') {
    fprintf(out, "<td class=a%d> %-*.*s</td>\r\n", i, c->width, c->width, text);
  } else {
    fprintf(out, "<td class=a%d> %s</td>\r\n", i, text);
  }
}

static void put_blank(int i) {
  fprintf(out, salary ? "<td> &nbsp;%*s </td>\r\n" : "<td>&nbsp;&nbsp;%*s&nbsp;</td>\r\n",
          columns[i].width, "");
}

static void put_serial(int repeated) {
  if (!salary) {
    fprintf(out, "<td align='right'>  %lld&nbsp;&nbsp;</td>\r\n", serial++);
  } else if (repeated) {
    fputs("<td align='right'><Q class=srno> </td>\r\n", out);
  } else {
    fprintf(out, "<td align='right'><Q class=srno>  %lld</td>\r\n", serial++);
  }
}

static void put_row(sqlite3_stmt* row, const char* customer, const char* region,
                    const char* voucher, int repeated, double quantity, double amount) {
  char text[128];
  fputs("<tr>\r\n", out);
  put_serial(repeated);
  if (repeated) {
    for (int i = 0; i < 4; i++) put_blank(i);
  } else {
    put_cell(0, voucher);
    format_date(text, sizeof text, (const char*)sqlite3_column_text(row, DATE));
    put_cell(1, text);
    put_cell(2, customer);
    put_cell(3, region);
  }
  copy_text(text, sizeof text, row, ITEM);
  put_cell(4, text);
  format_number(text, sizeof text, quantity, 0);
  put_cell(5, text);
  format_number(text, sizeof text, sqlite3_column_double(row, RATE), 2);
  put_cell(6, text);
  format_number(text, sizeof text, amount, 2);
  put_cell(7, text);
}

static void add_row(struct totals* t, int repeated, double quantity, double amount) {
  t->bills += !repeated;
  t->items++;
  t->quantity += quantity;
  t->amount += amount;
}

static void write_document(sqlite3_stmt* rows) {
  char region[128], customer[128], voucher[64];
  char last_region[128] = "", last_customer[128] = "", last_voucher[64] = "";
  struct totals customer_totals = {0}, region_totals = {0};
  int any = 0;

  fputs(head, out);
  used = head_used + ROW;
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

    if (any && new_customer) put_customer_total(&customer_totals, new_region);
    if (any && new_region) {
      if (salary) check_page();
      put_region_total(&region_totals, 0);
    }
    if (new_region) put_region(region);
    if (new_customer) put_customer(customer, new_region);
    put_row(rows, customer, region, voucher, repeated, quantity, amount);
    add_row(&customer_totals, repeated, quantity, amount);
    add_row(&region_totals, repeated, quantity, amount);
    grand_quantity += quantity;
    grand_amount += amount;
    used += ROW;
    if (salary) fputs("</tr>\r\n", out);
    check_page();
    if (!salary) fputs("</tr>\r\n", out);

    strcpy(last_region, region);
    strcpy(last_customer, customer);
    strcpy(last_voucher, voucher);
    any = 1;
  }
  if (any) put_customer_total(&customer_totals, 0);
  if (any) put_region_total(&region_totals, 1);
  put_grand_total();
}

int main(int argc, char** argv) {
  static char buffer[64 * 1024];
  sqlite3* database = NULL;
  sqlite3_stmt* rows = NULL;

  if (argc != 6) die("usage", "c_html table|salary DATABASE FILE TITLE SUBTITLE");
  salary = strcmp(argv[1], "salary") == 0;
  if (sqlite3_open_v2(argv[2], &database, SQLITE_OPEN_READONLY, NULL) != SQLITE_OK ||
      sqlite3_prepare_v2(database, SQL, -1, &rows, NULL) != SQLITE_OK) {
    die(argv[2], sqlite3_errmsg(database));
  }
  out = fopen(argv[3], "wb");
  if (out == NULL) die(argv[3], "cannot be opened");
  setvbuf(out, buffer, _IOFBF, sizeof buffer);
  salary ? make_salary_head(argv[4], argv[5]) : make_table_head(argv[4], argv[5]);
  write_document(rows);
  if (fclose(out) != 0) die(argv[3], "cannot be written");
  sqlite3_finalize(rows);
  if (sqlite3_close(database) != SQLITE_OK) die(argv[2], sqlite3_errmsg(database));
  return 0;
}
