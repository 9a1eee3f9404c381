#pragma once

#include <cstring>

#include "paperway/value.h"
#include "util/digits.h"

namespace paperway {

/// 0 Sunday to 6 Saturday; 1 to 366.
int dayOfWeek(const Date& date);
int dayOfYear(const Date& date);

/// Writers of dates and times: each writes at `at` and gives the place behind what it wrote.

/// Room that a short date, a blank and a long time need.
inline constexpr int kDateTextLength = 32;

/// 0 to 99, without a leading zero.
inline char* writeSmall(char* at, unsigned number) {
  if (number < 10) {
    *at = static_cast<char>('0' + number);
    return at + 1;
  }
  writePair(at, number);
  return at + 2;
}

inline char* writeTwoDigits(char* at, unsigned number) {
  writePair(at, number);
  return at + 2;
}

inline char* writeYear(char* at, const Date& date) {
  const auto year = static_cast<unsigned>(date.year);
  return writeTwoDigits(writeTwoDigits(at, year / 100), year % 100);
}

inline unsigned twelveHours(const Date& date) {
  const unsigned hour = date.hour % 12u;
  return hour == 0 ? 12 : hour;
}

/// "3/5/2026"
inline char* writeShortDate(char* at, const Date& date) {
  at = writeSmall(at, date.month);
  *at++ = '/';
  at = writeSmall(at, date.day);
  *at++ = '/';
  return writeYear(at, date);
}

/// "2:07:09 PM"
inline char* writeLongTime(char* at, const Date& date) {
  at = writeSmall(at, twelveHours(date));
  *at++ = ':';
  at = writeTwoDigits(at, date.minute);
  *at++ = ':';
  at = writeTwoDigits(at, date.second);
  std::memcpy(at, date.hour < 12 ? " AM" : " PM", 3);
  return at + 3;
}

}  // namespace paperway
