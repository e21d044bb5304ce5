#include "auftrag.h"

#include "felder.h"
#include "texte.h"

#include <stdexcept>

namespace auftraege {

IMPLEMENT_SERIAL(CAuftrag, CObject, 1)

namespace {

// Values keep a pointer to their format and do not own it, so it must outlive them.

constexpr unsigned long kLongestArticle = 60;
/// Letters, digits, blanks and what else can be printed.
constexpr unsigned long kPrintable = 1 | 2 | 4 | 8;
/// SQL gives a floating number 15 digits; none with more than that gets in. The sign has a place
/// too.
constexpr unsigned long kLongestWeight = 15 + 1;

const ZelFormat kArticle(kLongestArticle, kPrintable, ZelFormat::ZelFoAuffuellenOhne, ' ');
const ZelFormat kQuantity = NumberFormat(0);                                // 1.234
const ZelFormat kPrice = NumberFormat(2);                                   // 1.234,50
const ZelFormat kDiscount = NumberFormat(ZelFormat::kulZelFoAlleDezimalen); // 12,5
const ZelFormat kWeight(kLongestWeight, ZelFormat::kulZelFoAlleDezimalen,
                        ZelFormat::ZelFoDezimalKomma, ZelFormat::ZelFoTausenderPunkt,
                        ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, ' ', 0, ' ');
const ZelFormat kOrdered(ZelFormat::ZelFoDatumMinuten, ZelFormat::ZelFoDatumPunkt,
                         ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');

bool HasNumber(const Row& row, const ZelDtLong& wanted)
{
    ZelDtLong number(ZelDtWmMissing);
    try {
        Read(row.cells[0], "", number);
        return number == wanted;
    } catch (const Refusal&) {
        return false;
    }
}

} // namespace

CAuftrag::CAuftrag()
{
    article.SetFormat(&kArticle);
    quantity.SetFormat(&kQuantity);
    price.SetFormat(&kPrice);
    discount.SetFormat(&kDiscount);
    weight.SetFormat(&kWeight);
    ordered.SetFormat(&kOrdered);
    // The others are shown as their classes do.
}

void CAuftrag::ReadFrom(const std::string& fileName, const ZelDtLong& wanted)
{
    CsvFile file(fileName, OrderColumns());
    Row row;
    while (file.Next(row)) {
        if (!HasNumber(row, wanted))
            continue;
        try {
            Take(file, row);
            return;
        } catch (const Refusal& refusal) {
            throw std::runtime_error(fileName + ", Zeile " + std::to_string(row.line) +
                                     (refusal.column.empty() ? "" : ", " + refusal.column) + ": " +
                                     refusal.reason);
        }
    }
    throw std::runtime_error(fileName + ": kein Auftrag " + Utf8(wanted.ConvToOFL(nullptr)));
}

void CAuftrag::Take(const CsvFile& file, const Row& row)
{
    constexpr std::size_t articleCell = 2;
    // Assigning changes what the values hold, not how they are shown.
    static_cast<Order&>(*this) = Order(file, row);
    const std::string& column = file.GetColumns()[articleCell];
    Read(Ansi(row.cells[articleCell], column).GetString(), column, article);
    if (ordered.GetSecond() != 0)
        throw Refusal{"Auftragsdatum", "Sekunden zeigt die Maske nicht"};
    TakeFromDisplay();
}

/// What the mask shows is what it will read: an order that nobody touches does not change.
void CAuftrag::TakeFromDisplay()
{
    for (const Field& field : Fields()) {
        ZelDtBasis& value = field.value(*this);
        try {
            value.SetFromOFL(value.ConvToOFL(nullptr), nullptr);
        } catch (ZelDtExcep* error) {
            throw Refusal{field.name, ReasonOf(error)};
        }
        value.SetModified(0);
    }
}

void CAuftrag::Check() const
{
    for (const Field& field : Fields())
        Require(field.constant(*this), field.name);
    Order::Check();
}

std::string CAuftrag::ConvToSQL() const
{
    std::string names;
    std::string values;
    for (const Field& field : Fields()) {
        const char* const separator = names.empty() ? "" : ", ";
        names += std::string(separator) + field.name;
        values += std::string(separator) + Utf8(field.sql(*this).GetValue());
    }
    return "INSERT INTO Auftraege (" + names + ") VALUES (" + values + ");\n";
}

void CAuftrag::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    for (const Field& field : Fields())
        field.serialize(*this, ar);
}

} // namespace auftraege
