/* What the plain C writers of the ledger share: the rows of examples/ledger, and values as texts.
 */
#ifndef C_LEDGER_H
#define C_LEDGER_H

#include <sqlite3.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#define SQL \
  "SELECT region, customer, voucher, date, item, quantity, rate, amount FROM sales ORDER BY rowid"

enum { REGION, CUSTOMER, VOUCHER, DATE, ITEM, QUANTITY, RATE, AMOUNT };

static void die(const char* what, const char* why) {
  fprintf(stderr, "c_writer: %s: %s\n", what, why);
  exit(1);
}

/* UTF-8 to the code page of the printer; all that the data needs is the Latin letters. */
static void to_ansi(char* to, size_t size, const char* from) {
  const unsigned char* s = (const unsigned char*)from;
  size_t n = 0;
  while (*s != 0 && n + 1 < size) {
    if (*s < 0x80) {
      to[n++] = (char)*s++;
    } else if ((*s == 0xC2 || *s == 0xC3) && (s[1] & 0xC0) == 0x80) {
      to[n++] = (char)((*s << 6) | (s[1] & 0x3F));
      s += 2;
    } else {
      to[n++] = '?';
      for (s++; (*s & 0xC0) == 0x80; s++) continue;
    }
  }
  to[n] = 0;
}

static void copy_text(char* to, size_t size, sqlite3_stmt* row, int field) {
  const unsigned char* text = sqlite3_column_text(row, field);
  to_ansi(to, size, text == NULL ? "" : (const char*)text);
}

/* 2026-03-05 as 05-Mar-2026. */
static void format_date(char* to, size_t size, const char* iso) {
  static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  int year = 0, month = 0, day = 0;
  if (sscanf(iso, "%d-%d-%d", &year, &month, &day) != 3 || month < 1 || month > 12) {
    snprintf(to, size, "%s", iso);
  } else {
    snprintf(to, size, "%02d-%s-%04d", day, months[month - 1], year);
  }
}

/* A number with commas between the thousands. */
static void format_number(char* to, size_t size, double number, int decimals) {
  char plain[64];
  int length = snprintf(plain, sizeof plain, "%.*f", decimals, number);
  int point = decimals > 0 ? length - decimals - 1 : length;
  size_t n = 0;
  for (int i = 0; i < length && n + 2 < size; i++) {
    if (i > 0 && i < point && (point - i) % 3 == 0 && plain[i - 1] != '-') to[n++] = ',';
    to[n++] = plain[i];
  }
  to[n] = 0;
}

#endif
