#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_AUFTRAG_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_AUFTRAG_H

// An order as the mask shows and stores it.

#include "../auftraege.h"

#include <string>

namespace auftraege {

/// An object for archives: its values, each as its class writes it, in the order of Fields().
class CAuftrag : public CObject, public Order {
    DECLARE_SERIAL(CAuftrag)

public:
    /// Nothing defined; the values know how they are to be shown.
    CAuftrag();

    /// Takes the order of that number; std::runtime_error if the file has none or a broken one.
    void ReadFrom(const std::string& fileName, const ZelDtLong& wanted);

    /// Refuses missing values, and values that do not go together.
    void Check() const;

    /// A statement, in UTF-8, that adds the order to a table.
    std::string ConvToSQL() const;

    void Serialize(CArchive& ar) override;

    ZelDtString article{ZelDtWmMissing};
    /// Whether it may come in parts; Null until the customer was asked.
    ZelDtBool inParts{ZelDtWmNull};

private:
    void Take(const CsvFile& file, const Row& row);
    void TakeFromDisplay();
};

} // namespace auftraege

#endif
