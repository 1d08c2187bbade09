// SPDX-License-Identifier: MIT
// The en-US date rule (see conversions.h) and the date text form. The parser
// splits the text into numbers, words and marks, then matches an optional date
// form followed by an optional time form; anything left over refuses the text.
#include <array>
#include <cstdio>

#include "automation/calendar.h"
#include "automation/text.h"
#include "varnock/conversions.h"

namespace varnock {

namespace {

struct Token {
  enum Kind : std::uint8_t { Number, Word, Mark } kind;
  char mark;            // Mark: one of / - : , and 'T' for the ISO separator
  std::uint8_t digits;  // Number: how many digits were written
  int value;            // Number: its value; Word: month 1-12, 13 AM, 14 PM
};

constexpr int kAm = 13;
constexpr int kPm = 14;
constexpr std::size_t kMaxTokens = 16;

struct Tokens {
  std::array<Token, kMaxTokens> items;
  std::size_t count = 0;
};

bool isAlpha(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Month names and their three-letter forms, AM and PM; 0 for other words.
int wordValue(std::string_view word) {
  static constexpr std::string_view kMonths[] = {"january",   "february", "march",    "april",
                                                 "may",       "june",     "july",     "august",
                                                 "september", "october",  "november", "december"};
  if (word.size() > 9) return 0;
  char folded[9];
  for (std::size_t i = 0; i < word.size(); ++i)
    folded[i] = lowerCaseOf(word[i]);
  const std::string_view w(folded, word.size());
  if (w == "am") return kAm;
  if (w == "pm") return kPm;
  for (int m = 0; m < 12; ++m) {
    if (w == kMonths[m] || (w.size() == 3 && kMonths[m].substr(0, 3) == w)) return m + 1;
  }
  return 0;
}

bool tokenize(std::string_view s, Tokens& out) {
  std::size_t i = 0;
  while (i < s.size()) {
    const char c = s[i];
    if (c == ' ' || c == '\t') {
      ++i;
      continue;
    }
    if (out.count == kMaxTokens) return false;
    Token& t = out.items[out.count++];
    if (isDigit(c)) {
      int value = 0;
      std::uint8_t digits = 0;
      for (; i < s.size() && isDigit(s[i]); ++i) {
        if (++digits > 4) return false;  // no field of a date takes more
        value = value * 10 + (s[i] - '0');
      }
      t = {Token::Number, 0, digits, value};
    } else if (isAlpha(c)) {
      const std::size_t start = i;
      while (i < s.size() && isAlpha(s[i]))
        ++i;
      const std::string_view word = s.substr(start, i - start);
      if (word.size() == 1 && lowerCaseOf(word[0]) == 't') {
        t = {Token::Mark, 'T', 0, 0};
      } else {
        const int value = wordValue(word);
        if (value == 0) return false;
        t = {Token::Word, 0, 0, value};
      }
    } else if (c == '/' || c == '-' || c == ':' || c == ',') {
      t = {Token::Mark, c, 0, 0};
      ++i;
    } else {
      return false;
    }
  }
  return true;
}

class Matcher {
 public:
  explicit Matcher(const Tokens& tokens) : t_(tokens) {}

  bool atEnd() const { return pos_ == t_.count; }
  std::size_t position() const { return pos_; }
  void rewind(std::size_t pos) { pos_ = pos; }

  bool number(int& value, std::uint8_t maxDigits = 4, std::uint8_t* digits = nullptr) {
    if (atEnd() || t_.items[pos_].kind != Token::Number || t_.items[pos_].digits > maxDigits) {
      return false;
    }
    value = t_.items[pos_].value;
    if (digits) *digits = t_.items[pos_].digits;
    ++pos_;
    return true;
  }
  bool month(int& value) {
    if (atEnd() || t_.items[pos_].kind != Token::Word || t_.items[pos_].value > 12) return false;
    value = t_.items[pos_++].value;
    return true;
  }
  bool meridiem(int& value) {
    if (atEnd() || t_.items[pos_].kind != Token::Word || t_.items[pos_].value < kAm) return false;
    value = t_.items[pos_++].value;
    return true;
  }
  bool mark(char c) {
    if (atEnd() || t_.items[pos_].kind != Token::Mark || t_.items[pos_].mark != c) return false;
    ++pos_;
    return true;
  }

 private:
  const Tokens& t_;
  std::size_t pos_ = 0;
};

// Years written with one or two digits: 00-29 are 20xx, 30-99 are 19xx.
int fullYear(int year, std::uint8_t digits) {
  if (digits > 2) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

struct DatePart {
  int year, month, day;
  bool iso;  // year-first with '-', which may be followed by 'T'
};

bool matchDate(Matcher& m, DatePart& d) {
  const std::size_t start = m.position();
  int a = 0, b = 0, c = 0;
  std::uint8_t aDigits = 0, cDigits = 0;
  // Numeric forms: M/D/Y, Y/M/D and Y-M-D, told apart by the first field.
  if (m.number(a, 4, &aDigits)) {
    for (const char sep : {'/', '-'}) {
      const std::size_t afterFirst = m.position();
      if (m.mark(sep) && m.number(b, 2) && m.mark(sep) && m.number(c, 4, &cDigits)) {
        if (aDigits >= 3 && cDigits <= 2) {
          d = {a, b, c, sep == '-'};
          return true;
        }
        if (sep == '/') {
          d = {fullYear(c, cDigits), a, b, false};
          return true;
        }
      }
      m.rewind(afterFirst);
    }
    // "4 May 2000", "4 May, 2000"
    if (aDigits <= 2 && m.month(b)) {
      m.mark(',');
      if (m.number(c, 4, &cDigits)) {
        d = {fullYear(c, cDigits), b, a, false};
        return true;
      }
    }
  } else if (m.month(b)) {
    // "May 4, 2000", "May 4 2000"
    if (m.number(a, 2)) {
      m.mark(',');
      if (m.number(c, 4, &cDigits)) {
        d = {fullYear(c, cDigits), b, a, false};
        return true;
      }
    }
  }
  m.rewind(start);
  return false;
}

bool matchTime(Matcher& m, int& seconds) {
  int hour = 0, minute = 0, second = 0, meridiem = 0;
  if (!m.number(hour, 2) || !m.mark(':') || !m.number(minute, 2)) return false;
  if (m.mark(':') && !m.number(second, 2)) return false;
  const bool hasMeridiem = m.meridiem(meridiem);
  if (hour > 23 || minute > 59 || second > 59) return false;
  if (hasMeridiem) {
    if (meridiem == kAm) {
      if (hour > 12) return false;
      if (hour == 12) hour = 0;
    } else if (hour < 12) {
      hour += 12;  // "13:45:00PM", as the writers produce it, stays 13
    }
  }
  seconds = hour * 3600 + minute * 60 + second;
  return true;
}

}  // namespace

std::optional<Date> parseDate(std::string_view text) {
  Tokens tokens;
  if (!tokenize(text, tokens) || tokens.count == 0) return std::nullopt;
  Matcher m(tokens);

  DatePart date{};
  const bool hasDate = matchDate(m, date);
  if (hasDate) {
    if (date.year < 100 || date.year > 9999 ||
        !calendar::isValidDate(date.year, date.month, date.day)) {
      return std::nullopt;
    }
    if (date.iso && m.mark('T') && m.atEnd()) return std::nullopt;  // 'T' needs a time
  }
  // Whatever follows the date must be a whole, valid time: a time that does
  // not read refuses the text rather than leaving the date at midnight.
  int seconds = 0;
  const bool hasTime = !m.atEnd();
  if (hasTime && !matchTime(m, seconds)) return std::nullopt;
  if (!m.atEnd() || (!hasDate && !hasTime)) return std::nullopt;

  const std::int64_t day = hasDate ? calendar::dayNumber(date.year, date.month, date.day) : 0;
  return Date{calendar::serialOf(day, seconds)};
}

std::string formatDate(Date value) {
  const CivilDateTime c = value.civil();
  const bool dayZero = c.year == 1899 && c.month == 12 && c.day == 30;
  const bool midnight = c.hour == 0 && c.minute == 0 && c.second == 0;
  char text[48];
  int length = 0;
  if (!dayZero) length = std::snprintf(text, sizeof text, "%d/%d/%d", c.month, c.day, c.year);
  if (dayZero || !midnight) {
    const int hour12 = c.hour % 12 == 0 ? 12 : c.hour % 12;
    length += std::snprintf(text + length, sizeof text - static_cast<std::size_t>(length),
                            "%s%d:%02d:%02d %s", dayZero ? "" : " ", hour12, c.minute, c.second,
                            c.hour < 12 ? "AM" : "PM");
  }
  return std::string(text, static_cast<std::size_t>(length));
}

}  // namespace varnock
