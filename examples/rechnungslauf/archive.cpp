#include "archive.h"

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <utility>

namespace rechnungslauf {

IMPLEMENT_SERIAL(CRechnung, CObject, 1)

namespace {

/// More positions than an invoice can number.
constexpr ULONGLONG kMostPositions = 32767;

template <typename Visit>
void ForValues(Position& position, Visit&& visit)
{
    visit(position.invoice);
    visit(position.line);
    visit(position.order);
    visit(position.kind);
    visit(position.text);
    visit(position.quantity);
    visit(position.time);
    visit(position.price);
    visit(position.discount);
    visit(position.taxRate);
    visit(position.net);
}

template <typename Visit>
void ForValues(Invoice& invoice, Visit&& visit)
{
    visit(invoice.number);
    visit(invoice.customer);
    visit(invoice.name);
    visit(invoice.date);
    visit(invoice.due);
    for (ZelDtDecimal& net : invoice.net)
        visit(net);
    for (ZelDtDecimal& tax : invoice.tax)
        visit(tax);
    visit(invoice.gross);
    visit(invoice.cashDiscount);
    visit(invoice.time);
    visit(invoice.weight);
}

[[noreturn]] void FailToLoad(const std::string& name)
{
    throw std::runtime_error(name + ": kein Archiv einer Rechnung");
}

std::unique_ptr<CRechnung> Load(CFile& file)
{
    CArchive ar(&file, CArchive::load);
    std::unique_ptr<CObject> object(ar.ReadObject(RUNTIME_CLASS(CRechnung)));
    char more = '\0';
    if (object == nullptr || ar.Read(&more, 1) != 0)
        return nullptr;
    return std::unique_ptr<CRechnung>(static_cast<CRechnung*>(object.release()));
}

} // namespace

CRechnung::CRechnung(Invoice values) : invoice(std::move(values)) {}

void CRechnung::Serialize(CArchive& ar)
{
    CObject::Serialize(ar);
    const auto serialize = [&ar](auto& value) { value.Serialize(ar); };
    ForValues(invoice, serialize);
    if (ar.IsStoring()) {
        ar.WriteCount(invoice.positions.size());
        for (Position& position : invoice.positions)
            ForValues(position, serialize);
        return;
    }
    const ULONGLONG count = ar.ReadCount();
    if (count > kMostPositions)
        AfxThrowArchiveException(CArchiveException::badIndex);
    for (ULONGLONG i = 0; i < count; ++i)
        ForValues(invoice.positions.emplace_back(), serialize);
}

std::string ArchiveOf(const Invoice& invoice)
{
    const CRechnung object(invoice);
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar << &object;
    ar.Close();
    const auto length = static_cast<std::size_t>(file.GetLength());
    const std::unique_ptr<BYTE, decltype(&std::free)> bytes(file.Detach(), &std::free);
    return std::string(reinterpret_cast<const char*>(bytes.get()), length);
}

Invoice LoadInvoice(const std::string& name)
{
    CFile file;
    if (!file.Open(name.c_str(), CFile::modeRead))
        throw std::runtime_error(name + ": kann nicht gelesen werden");
    try {
        const std::unique_ptr<CRechnung> object = Load(file);
        if (object != nullptr)
            return object->invoice;
    } catch (CException* error) {
        error->Delete();
    } catch (ZelDtExcep* error) {
        delete error;
    }
    FailToLoad(name);
}

} // namespace rechnungslauf
