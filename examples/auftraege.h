#ifndef ZELDT_EXAMPLES_AUFTRAEGE_H
#define ZELDT_EXAMPLES_AUFTRAEGE_H

// What the examples share: rows of CSV, typed cells, the orders of auftraege.csv, and the rows that
// were refused.

#include <ZelDt.h>

#include <cstddef>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace auftraege {

// Files

/// A row of a file: its cells in UTF-8 and the number of its first line.
struct Row {
    int line = 0;
    std::vector<std::string> cells;
    bool quotesRight = true;
};

/// Why a row is refused. Thrown by value.
struct Refusal {
    std::string column; ///< empty: the row as a whole
    std::string reason; ///< UTF-8
};

/// Rows of cells parted by semicolons, in quotes where they hold a separator, a quote or a line
/// end.
class CsvFile {
public:
    /// The first row must hold these names, else std::runtime_error.
    CsvFile(const std::string& name, const std::vector<std::string>& columns);

    /// Takes the next row; false at the end.
    bool Next(Row& row);

    /// Refuses a row that has the wrong cells.
    void Check(const Row& row) const;

    const std::vector<std::string>& GetColumns() const { return m_columns; }

private:
    std::ifstream m_file;
    std::vector<std::string> m_columns;
    int m_line = 1;
};

// Values

/// What was wrong first, in UTF-8: the error that arrives merely names the operation that it
/// stopped. Takes the error over.
std::string ReasonOf(ZelDtExcep* error);

/// Reads a cell as Germans write it, whatever the class of the value. An empty one makes the value
/// undefined; whether that will do is a matter of its working mode.
void Read(const std::string& cell, const std::string& column, ZelDtBasis& value);

/// Refuses a value that is missing. One that is Null will do.
void Require(const ZelDtBasis& value, const std::string& column);

struct Order {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtLong customer{ZelDtWmMissing};
    ZelDtShort quantity{ZelDtWmMissing};
    ZelDtDecimal price{ZelDtWmMissing};
    ZelDtDateTime ordered{ZelDtWmMissing};
    ZelDtBool express{ZelDtWmMissing};
    ZelDtChar status{ZelDtWmMissing}; ///< one of the constants below
    // An order may lack these. They are Null then, and Null adds as 0.
    ZelDtDecimal discount{ZelDtWmNull};
    ZelDtDouble weight{ZelDtWmNull};
    ZelDtDateZp due{ZelDtWmNull};
    ZelDtTime worked{ZelDtWmNull};

    static constexpr char kOpen = 'O';
    static constexpr char kDelivered = 'L';
    static constexpr char kPaid = 'B';

    Order() = default;
    /// Refuses a row that is no order.
    Order(const CsvFile& file, const Row& row);

    /// Refuses values that do not go together. None may be missing.
    void Check() const;
};

/// The columns of auftraege.csv.
std::vector<std::string> OrderColumns();

// Reports

/// Rows that were refused, and why.
class Refused {
public:
    /// Runs `body` for each row of the file; what it refuses is noted, the others go on.
    template <typename Body>
    void ForRows(CsvFile& file, const char* kind, Body&& body)
    {
        Row row;
        while (file.Next(row)) {
            try {
                body(row);
            } catch (const Refusal& refusal) {
                Note(kind, row, refusal);
            } catch (ZelDtExcep* error) { // an overflow, for example
                Note(kind, row, {"", ReasonOf(error)});
            }
        }
    }

    void Print() const;

private:
    void Note(const char* kind, const Row& row, const Refusal& refusal);

    std::vector<std::string> m_lines;
};

/// Numbers as Germans write them, of any length.
ZelFormat NumberFormat(unsigned long decimals);

/// The text and blanks up to `width`. Names may have fewer characters than bytes, so that printf
/// cannot align them.
std::string Padded(const std::string& text, std::size_t width);

/// The exit status of a program: runs `body`, and tells on standard error what stopped it.
int RunProgram(const char* name, const std::function<void()>& body);

} // namespace auftraege

#endif
