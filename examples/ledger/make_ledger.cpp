// Makes the sample database: a year's sales of a wholesaler, in the order of the ledger report
// (region, customer, voucher), and the table of its columns. The same rows on every machine.
//
//   make_ledger FILE [ROWS]

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/memory.h"
#include "paperway/storage.h"

namespace {

constexpr const char* kRegions[] = {"Assam",     "Bihar",      "Delhi",         "Gujarat",
                                    "Karnataka", "Kerala",     "Maharashtra",   "Punjab",
                                    "Rajasthan", "Tamil Nadu", "Uttar Pradesh", "West Bengal"};

// Both sorted, so that families by trades come out in the order of the customers' names.
constexpr const char* kFamilies[] = {
    "Agarwal",   "Ahuja",     "Bajaj",  "Banerjee", "Bhatia", "Chandran", "Choudhary", "D'Souza",
    "Deshmukh",  "Fernandes", "Gandhi", "Goyal",    "Gupta",  "Iyer",     "Jain",      "Joshi",
    "Kamath",    "Kapoor",    "Khanna", "Kulkarni", "Mehta",  "Mishra",   "Mukherjee", "Naidu",
    "Nair",      "Patel",     "Pillai", "Rao",      "Reddy",  "Saxena",   "Sharma",    "Shetty",
    "Singhania", "Soni",      "Thakur", "Thomas",   "Tiwari", "Varma",    "Wadhwa",    "Yadav"};
constexpr const char* kTrades[] = {"& Company",      "& Sons",       "Agencies",    "Bhandar",
                                   "Brothers",       "Distributors", "Emporium",    "Enterprises",
                                   "General Stores", "Impex",        "Industries",  "Marketing",
                                   "Mart",           "Provisions",   "Sales Corp.", "Super Bazaar",
                                   "Supply House",   "Syndicate",    "Traders",     "Wholesalers"};

struct Item {
  const char* name;
  int rate;         // rupees, about
  int mostOrdered;  // pieces
};
constexpr Item kItems[] = {{"Almonds, broken 1 kg", 740, 20},
                           {"Basmati rice 25 kg", 2150, 12},
                           {"Besan 10 kg", 880, 15},
                           {"Biscuits glucose 48 x 75 g", 420, 40},
                           {"Café blend coffee 500 g", 365, 30},
                           {"Cardamom, green 100 g", 310, 24},
                           {"Cashew W240 1 kg", 935, 20},
                           {"Chana dal 30 kg", 2340, 10},
                           {"Coconut oil tin 15 l", 2890, 8},
                           {"Crème wafers 24 x 75 g", 560, 30},
                           {"Detergent powder 10 kg", 780, 18},
                           {"Filter coffee 200 g", 145, 48},
                           {"Ghee tin 15 kg", 8350, 4},
                           {"Groundnut oil tin 15 l", 2760, 8},
                           {"Hair oil 72 x 100 ml", 3240, 6},
                           {"Incense sticks, 12 dozen", 690, 24},
                           {"Jaggery 10 kg", 520, 20},
                           {"Maida 50 kg", 1680, 10},
                           {"Masala tea 1 kg", 480, 36},
                           {"Matches, 600 boxes", 810, 15},
                           {"Mustard oil tin 15 l", 2480, 10},
                           {"Noodles 96 x 70 g", 1020, 16},
                           {"Papad 5 kg", 1150, 12},
                           {"Pepper, black 500 g", 385, 30},
                           {"Pickle, mango 12 x 1 kg", 1740, 9},
                           {"Poha 20 kg", 940, 14},
                           {"Raisins 1 kg", 295, 30},
                           {"Rava 25 kg", 1090, 12},
                           {"Refined oil tin 15 l", 2010, 14},
                           {"Salt, iodised 50 x 1 kg", 950, 25},
                           {"Soap, bath 144 x 75 g", 3650, 6},
                           {"Sona masoori rice 25 kg", 1390, 20},
                           {"Soufflé mix 48 x 90 g", 1420, 8},
                           {"Sugar M-30 50 kg", 2080, 15},
                           {"Tea dust 10 kg", 2640, 8},
                           {"Toor dal 30 kg", 4120, 8},
                           {"Turmeric powder 5 kg", 760, 16},
                           {"Urad dal 30 kg", 3580, 8},
                           {"Vermicelli 40 x 430 g", 1260, 10},
                           {"Wheat flour 50 kg", 1730, 18}};

constexpr int kDays = 365;
constexpr std::int64_t kRowsOfACustomer = 80;

/// Random numbers that are the same everywhere (SplitMix64).
class Random {
 public:
  std::int64_t below(std::int64_t limit) {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return static_cast<std::int64_t>((z ^ (z >> 31)) % static_cast<std::uint64_t>(limit));
  }

 private:
  std::uint64_t state_ = 2026;
};

class Database {
 public:
  explicit Database(const std::filesystem::path& file) {
    check(sqlite3_open(file.c_str(), &connection_));
  }
  ~Database() { sqlite3_close(connection_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void run(const std::string& sql) {
    check(sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr));
  }
  sqlite3_stmt* prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(connection_, sql.c_str(), -1, &statement, nullptr));
    return statement;
  }
  void check(int result) {
    if (result != SQLITE_OK && result != SQLITE_DONE) {
      throw std::runtime_error(sqlite3_errmsg(connection_));
    }
  }

 private:
  sqlite3* connection_ = nullptr;
};

/// An INSERT whose values are given one after the other.
class Insert {
 public:
  Insert(Database& database, const std::string& sql)
      : database_(database), statement_(database.prepare(sql)) {}
  ~Insert() { sqlite3_finalize(statement_); }
  Insert(const Insert&) = delete;
  Insert& operator=(const Insert&) = delete;

  Insert& operator<<(std::nullptr_t) {
    sqlite3_bind_null(statement_, ++place_);
    return *this;
  }
  Insert& operator<<(std::string_view text) {
    sqlite3_bind_text(statement_, ++place_, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  Insert& operator<<(std::int64_t number) {
    sqlite3_bind_int64(statement_, ++place_, number);
    return *this;
  }
  Insert& operator<<(double number) {
    sqlite3_bind_double(statement_, ++place_, number);
    return *this;
  }
  void row() {
    database_.check(sqlite3_step(statement_));
    sqlite3_reset(statement_);
    place_ = 0;
  }

 private:
  Database& database_;
  sqlite3_stmt* statement_;
  int place_ = 0;
};

struct Day {
  explicit Day(int ofYear) {
    using namespace std::chrono;
    sys_days day = sys_days{year{2025} / April / 1} + days{ofYear};
    if (weekday{day} == Sunday && ofYear + 1 < kDays) day += days{1};
    index = static_cast<std::size_t>((day - sys_days{year{2025} / April / 1}).count());
    const year_month_day date{day};
    std::snprintf(iso, sizeof iso, "%04d-%02u-%02u", int{date.year()}, unsigned{date.month()},
                  unsigned{date.day()});
    std::snprintf(compact, sizeof compact, "%.2s%.2s%.2s", iso + 2, iso + 5, iso + 8);
  }

  std::size_t index;
  char iso[32];
  char compact[8];
};

class Ledger {
 public:
  explicit Ledger(Database& database)
      : insert_(database, "INSERT INTO sales VALUES(?,?,?,?,?,?,?,?)") {}

  void write(std::int64_t rows);

 private:
  void writeCustomer(const std::string& region, const std::string& customer, std::int64_t rows);
  void writeVoucher(const std::string& region, const std::string& customer, const Day& day,
                    std::int64_t lines);

  Insert insert_;
  Random random_;
  std::array<int, kDays> vouchersOfDay_{};
};

// Customers, evenly spread over the names, get shares of the rows that differ up to eightfold.
void Ledger::write(std::int64_t rows) {
  const auto regions = static_cast<std::int64_t>(std::size(kRegions));
  const auto names = static_cast<std::int64_t>(std::size(kFamilies) * std::size(kTrades));
  const auto wanted = rows / kRowsOfACustomer / regions;
  const std::int64_t customers = wanted < 4 ? 4 : wanted > names ? names : wanted;
  std::vector<std::int64_t> upTo;
  std::int64_t shares = 0;
  for (std::int64_t i = 0; i < regions * customers; ++i) {
    upTo.push_back(shares += 2 + random_.below(15));
  }
  std::int64_t written = 0;
  for (std::int64_t i = 0; i < regions * customers; ++i) {
    const std::int64_t first = i % customers * names / customers;
    const std::int64_t next = (i % customers + 1) * names / customers;
    const auto name = static_cast<std::size_t>(first + random_.below(next - first));
    const std::int64_t end = rows * upTo[static_cast<std::size_t>(i)] / shares;
    writeCustomer(kRegions[i / customers],
                  std::string(kFamilies[name / std::size(kTrades)]) + " " +
                      kTrades[name % std::size(kTrades)],
                  end - written);
    written = end;
  }
}

void Ledger::writeCustomer(const std::string& region, const std::string& customer,
                           std::int64_t rows) {
  for (std::int64_t done = 0; done < rows;) {
    const std::int64_t wanted = 1 + random_.below(4);
    const std::int64_t lines = wanted < rows - done ? wanted : rows - done;
    const std::int64_t when = (done * 8 + random_.below(lines * 8)) * kDays / (rows * 8);
    writeVoucher(region, customer, Day(static_cast<int>(when)), lines);
    done += lines;
  }
}

void Ledger::writeVoucher(const std::string& region, const std::string& customer, const Day& day,
                          std::int64_t lines) {
  char voucher[24];
  std::snprintf(voucher, sizeof voucher, "%s/%04d", day.compact, ++vouchersOfDay_[day.index]);
  constexpr auto kItemCount = static_cast<std::int64_t>(std::size(kItems));
  std::int64_t choice = random_.below(kItemCount);
  for (std::int64_t line = 0; line < lines; ++line) {
    const Item& item = kItems[choice];
    choice = (choice + 1 + random_.below(kItemCount / 4)) % kItemCount;
    const std::int64_t quantity = 1 + random_.below(item.mostOrdered);
    const std::int64_t paise = item.rate * (95 + random_.below(10)) + random_.below(20) * 5;
    insert_ << region << customer << voucher << day.iso << item.name << quantity
            << static_cast<double>(paise) / 100 << static_cast<double>(quantity * paise) / 100;
    insert_.row();
  }
}

void writeColumns(Database& database, paperway::MemoryTable columns) {
  std::string definitions;
  std::string values;
  for (std::size_t i = 0; i < columns.fieldCount(); ++i) {
    const std::string name(columns.fieldName(i));
    if (i > 0) definitions += ", ";
    definitions += name + (name == "Sz" || name == "Spc" ? " INTEGER" : " TEXT");
    values += i > 0 ? ",?" : "?";
  }
  database.run("CREATE TABLE columns(" + definitions + ")");
  Insert insert(database, "INSERT INTO columns VALUES(" + values + ")");
  for (; !columns.Eof(); columns.MoveNext()) {
    for (std::size_t i = 0; i < columns.fieldCount(); ++i) {
      const paperway::ValueView cell = columns.value(i);
      cell.isNull() ? insert << nullptr : insert << cell.text();
    }
    insert.row();
  }
}

void makeLedger(const std::filesystem::path& file, std::int64_t rows) {
  const std::filesystem::path unfinished = file.string() + ".part";
  std::filesystem::remove(unfinished);
  {
    Database database(unfinished);
    database.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
    paperway::desktop::Storage storage;
    writeColumns(database, paperway::readCsvFile(storage, PAPERWAY_LEDGER_COLUMNS));
    database.run(
        "CREATE TABLE sales(region TEXT, customer TEXT, voucher TEXT, date DATE,"
        " item TEXT, quantity INTEGER, rate REAL, amount REAL)");
    Ledger(database).write(rows);
    database.run("COMMIT");
  }
  std::filesystem::rename(unfinished, file);
}

}  // namespace

int main(int argc, char** argv) {
  constexpr char kUsage[] = "usage: make_ledger FILE [ROWS]\n";
  const std::string_view first = argc > 1 ? argv[1] : "";
  if (first == "--help" || first == "-h") {
    std::fputs(kUsage, stdout);
    return 0;
  }
  const std::int64_t rows = argc > 2 ? std::atoll(argv[2]) : 4000;
  if (first.empty() || first.starts_with('-') || argc > 3 || rows < 1) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  try {
    makeLedger(argv[1], rows);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_ledger: %s: %s\n", argv[1], error.what());
    return 1;
  }
  return 0;
}
