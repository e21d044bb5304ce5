#include "felder.h"

#include <algorithm>
#include <iterator>

namespace auftraege {

namespace {

constexpr int kFirstControl = 100;

// Exchanges

template <auto Value>
void ExchangeText(CDataExchange* dx, int id, CAuftrag& order)
{
    DDX_ZelDtTyp(dx, id, order.*Value);
}

template <auto Value>
void ExchangeBox(CDataExchange* dx, int id, CAuftrag& order)
{
    DDX_ZelDtTypCheck(dx, id, order.*Value);
}

/// The box would store its third state as the number 2. Here it means that nobody knows, and what
/// nobody knows is Null.
template <auto Value>
void ExchangeThreeStates(CDataExchange* dx, int id, CAuftrag& order)
{
    ZelDtBool& value = order.*Value;
    ZelDtBool state(value.IsDefined() ? value.GetValue() : BST_INDETERMINATE);
    DDX_ZelDtTypCheck(dx, id, state);
    if (!dx->m_bSaveAndValidate)
        return;
    if (state == BST_INDETERMINATE)
        value.Clear();
    else
        value = state;
}

// The table

using Exchange = void (*)(CDataExchange*, int, CAuftrag&);

/// `Value` is a member of CAuftrag.
template <auto Value>
constexpr Field Make(const char* name, const char* label, const char* unit, Kind kind, Place place,
                     Exchange exchange)
{
    return {name,
            label,
            unit,
            kind,
            place,
            exchange,
            [](CAuftrag& order) -> ZelDtBasis& { return order.*Value; },
            [](const CAuftrag& order) -> const ZelDtBasis& { return order.*Value; },
            [](const CAuftrag& order) { return (order.*Value).ConvToSQL(); },
            [](CAuftrag& order, CArchive& ar) { (order.*Value).Serialize(ar); }};
}

template <auto Value>
constexpr Field Edit(const char* name, const char* label, const char* unit, Kind kind, Place place)
{
    return Make<Value>(name, label, unit, kind, place, &ExchangeText<Value>);
}

using Auftrag = CAuftrag;

constexpr Field kFields[] = {
    Edit<&Auftrag::number>("Nr", "Nummer", "", Kind::Number, {0, 0, 90}),
    Edit<&Auftrag::customer>("Kunde", "Kunde", "", Kind::Number, {0, 1, 90}),
    Edit<&Auftrag::article>("Artikel", "Artikel", "", Kind::Text, {1, 0, 430}),
    Edit<&Auftrag::quantity>("Menge", "Menge", "Stück", Kind::Number, {2, 0, 90}),
    Edit<&Auftrag::price>("Preis", "Preis", "EUR", Kind::Number, {2, 1, 90}),
    Edit<&Auftrag::discount>("Rabatt", "Rabatt", "%", Kind::Number, {3, 0, 90}),
    Edit<&Auftrag::weight>("Gewicht", "Gewicht", "kg", Kind::Number, {3, 1, 90}),
    Edit<&Auftrag::ordered>("Auftragsdatum", "Auftrag vom", "", Kind::Text, {4, 0, 130}),
    Edit<&Auftrag::due>("Faellig", "Fällig am", "", Kind::Text, {4, 1, 90}),
    Edit<&Auftrag::worked>("Arbeitszeit", "Arbeitszeit", "Std.", Kind::Number, {5, 0, 90}),
    Edit<&Auftrag::status>("Status", "Status", "O offen, L geliefert, B bezahlt", Kind::Text,
                           {5, 1, 24}),
    Make<&Auftrag::express>("Express", "Express", "", Kind::Box, {6, 0, 130},
                            &ExchangeBox<&Auftrag::express>),
    Make<&Auftrag::inParts>("Teillieferung", "Teillieferung", "grau: nicht gefragt",
                            Kind::ThreeStates, {6, 1, 92}, &ExchangeThreeStates<&Auftrag::inParts>),
};

} // namespace

std::span<const Field> Fields()
{
    return kFields;
}

const Field* FindField(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(kFields), std::end(kFields),
                                           [&](const Field& field) { return field.name == name; });
    return found != std::end(kFields) ? found : nullptr;
}

int ControlOf(const Field& field)
{
    return kFirstControl + static_cast<int>(&field - std::begin(kFields));
}

const Field* FieldOf(int control)
{
    const int index = control - kFirstControl;
    return index >= 0 && index < static_cast<int>(std::size(kFields)) ? &kFields[index] : nullptr;
}

} // namespace auftraege
