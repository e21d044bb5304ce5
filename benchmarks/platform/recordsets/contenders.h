#ifndef ZELDT_BENCHMARKS_PLATFORM_RECORDSETS_CONTENDERS_H
#define ZELDT_BENCHMARKS_PLATFORM_RECORDSETS_CONTENDERS_H

/// Ways to read and write the rows of a table of eight mixed columns.
///
/// Texts here are in UTF-8, which SQLite and the connections of the peers speak.

#include <cstdint>
#include <string>
#include <string_view>

namespace zelbench {

/// A row as plain members.
struct PlainRow {
    int number = 0;
    int quantity = 0;
    std::string price; ///< two decimals
    double weight = 0;
    bool hasWeight = false; ///< else the column is null
    std::string name;
    char grade = ' ';
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool isExpress = false;
};

/// The row of that number, the same in every run.
PlainRow MakeRow(int number);

/// Sums up rows, to compare what different ways have read.
class Fingerprint {
public:
    void Add(const PlainRow& row);
    std::uint64_t Get() const { return m_sum; }

private:
    std::uint64_t m_sum = 14695981039346656037ULL;
};

struct Contender {
    const char* name;
    /// Reads table READING and returns the number of rows; adds them to the fingerprint unless that
    /// is null.
    int (*read)(const std::string& connect, Fingerprint* fingerprint);
    /// Writes that many rows to table WRITING in one transaction.
    void (*write)(const std::string& connect, int rows);
};

extern const Contender kOurs;
extern const Contender kBareOdbc;
#ifdef ZELBENCH_HAVE_SOCI
extern const Contender kSoci;
#endif

/// Runs a statement.
void Execute(const std::string& connect, const std::string& sql);

/// Whether the source is SQLite, which needs other types of columns.
bool IsSqlite(const std::string& connect);

} // namespace zelbench

#endif
