#include <ZelDt.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// Any bytes as an archive: they are read as objects and as members. What comes out is a value, or
// an error of the archive; values stay usable: whatever they hold, every operation ends with a
// value or an error.

namespace {

/// Runs the body; its errors are what they should be and are deleted.
template <typename Body>
void Tolerating(const Body& body)
{
    try {
        body();
    } catch (CException* e) {
        e->Delete();
    } catch (ZelEhBasis* e) {
        delete e;
    }
}

/// Runs them all, whatever each of them ends with.
template <typename... Bodies>
void TryEach(const Bodies&... bodies)
{
    (Tolerating(bodies), ...);
}

/// Runs each on a copy of the value and asks for its external text afterwards.
template <typename Value, typename... Changes>
void TryChanges(const Value& value, const Changes&... changes)
{
    const auto onCopy = [&](const auto& change) {
        Value copy(value);
        Tolerating([&] { change(copy); });
        Tolerating([&] {
            int defined = 0;
            unsigned short version = 0;
            copy.ConvToExtern(defined, version);
        });
    };
    (onCopy(changes), ...);
}

template <typename Value>
void Compare(const Value& a, const Value& b)
{
    TryEach([&] { (void)(a < b); }, [&] { (void)(a > b); }, [&] { (void)(a <= b); },
            [&] { (void)(a >= b); }, [&] { (void)(a == b); }, [&] { (void)(a != b); });
}

void UseTime(const ZelDtTime& value, const ZelDtTime& other)
{
    for (const auto mode : {ZelDtTime::Hundertstel, ZelDtTime::Minuten, ZelDtTime::Stunden}) {
        TryEach([&] { value.GetMin(mode); }, [&] { value.GetTime(mode); });
        TryChanges(
            value, [&](ZelDtTime& t) { t.SetMin(LONG_MAX, mode); },
            [&](ZelDtTime& t) { t.SetTime(LONG_MIN, mode); },
            [&](ZelDtTime& t) { t.AddMin(LONG_MIN, mode); },
            [&](ZelDtTime& t) { t.SubMin(59, mode); });
    }
    TryEach([&] { ZelDtString{value}; }, [&] { value.ConvToSQL(); }, [&] { value.GetHour(); },
            [&] { value + other; }, [&] { value - other; });
    TryChanges(
        value, [](ZelDtTime& t) { t.SetHour(-1); }, [](ZelDtTime& t) { t.AddHour(LONG_MIN); },
        [](ZelDtTime& t) { t.SubHour(1789568); },
        [](ZelDtTime& t) { t.Round(ZelDtTime::RundenStunde); }, [](ZelDtTime& t) { t += t; },
        [&](ZelDtTime& t) { t -= other; });
    Compare(value, other);
}

/// Setters and arithmetic, with counts from end to end.
void ChangeDateTime(const ZelDtDateTime& value)
{
    for (const short count : {0, 1, 31, 12, 1753, -1, 32767, -32767 - 1})
        TryChanges(
            value, [=](ZelDtDateTime& d) { d.SetDay365(count); },
            [=](ZelDtDateTime& d) { d.SetMonth(count); },
            [=](ZelDtDateTime& d) { d.SetYear(count); },
            [=](ZelDtDateTime& d) { d.SetHour(count); },
            [=](ZelDtDateTime& d) { d.SetSecond(count); },
            [=](ZelDtDateTime& d) { d.AddDay365(count); },
            [=](ZelDtDateTime& d) { d.SubDay365(count); },
            [=](ZelDtDateTime& d) { d.AddMonth(count); },
            [=](ZelDtDateTime& d) { d.SubMonth(count); },
            [=](ZelDtDateTime& d) { d.AddYear(count); },
            [=](ZelDtDateTime& d) { d.SubYear(count); });
    for (const long count : {1L, -1L, 60L, 100000L, LONG_MAX, LONG_MIN})
        TryChanges(
            value, [=](ZelDtDateTime& d) { d.AddHour(count); },
            [=](ZelDtDateTime& d) { d.SubHour(count); }, [=](ZelDtDateTime& d) { d.AddMin(count); },
            [=](ZelDtDateTime& d) { d.SubMin(count); });
    TryChanges(
        value, [](ZelDtDateTime& d) { d.SetMin(59); },
        [](ZelDtDateTime& d) { d.SetDateTime("29.02.2000 12:30:45"); },
        [](ZelDtDateTime& d) { d.SetTime("23:59"); },
        [](ZelDtDateTime& d) { d.SetFromSQL("Feb 29 2000 12:30PM"); },
        [](ZelDtDateTime& d) { d.SetFromOFL("29.02.2000", nullptr); },
        [](ZelDtDateTime& d) { d.WipeTime(); });
}

void UseDateTime(const ZelDtDateTime& value, const ZelDtDateTime& other, const ZelDtTime& span)
{
    for (const SQL_Language language :
         {SQL_Deutsch, SQL_Englisch, SQL_Ziffern, SQL_DatumUhrzeit, SQL_Datum})
        TryEach([&] { value.ConvToSQL(language); });
    TryEach([&] { value.GetValue(); }, [&] { value.GetDay365(); }, [&] { value.GetMonth(); },
            [&] { value.GetYear(); }, [&] { value.GetHour(); }, [&] { value.GetMin(); },
            [&] { value.GetSecond(); }, [&] { ZelDtString{value}; }, [&] { ZelDtDateZp{value}; },
            [&] { (void)static_cast<COleDateTime>(value); },
            [&] {
                const std::tm fields = value.GetValue();
                ZelDtDateTime again(&fields);
            },
            [&] { value + span; }, [&] { value - span; }, [&] { value - other; },
            [&] { other - value; });
    ChangeDateTime(value);
    Compare(value, other);
}

void UseDate(const ZelDtDateZp& value, const ZelDtTime& span)
{
    TryEach([&] { (void)static_cast<std::tm>(value); }, [&] { ZelDtString{value}; },
            [&] { value + span; }, [&] { value - span; });
}

void UseBool(const ZelDtBool& value)
{
    TryEach([&] { value.IsTrue(); }, [&] { value.IsFalse(); }, [&] { value.ConvToSQL(); },
            [&] { ZelDtString{value}; }, [&] { (void)(value == ZelDtBool(value)); });
}

void UseChar(const ZelDtChar& value)
{
    TryEach([&] { value.GetValue(); }, [&] { value.ConvToSQL(850); }, [&] { ZelDtString{value}; },
            [&] { (void)(value == ZelDtChar(value)); }, [&] { value + ZelDtString("x"); });
    TryChanges(
        value, [](ZelDtChar& c) { c.ToUpper(); }, [](ZelDtChar& c) { c.ToLower(); },
        [](ZelDtChar& c) { c.SetFromSQL('x', 437); });
}

/// What only its own class has.
void UseByClass(const ZelDtBasis& value)
{
    static const ZelDtTime longest("1789568:59");
    static const ZelDtDateTime other(29, 2, 2000, 23, 59, 58);
    if (const auto* time = dynamic_cast<const ZelDtTime*>(&value)) {
        UseTime(*time, longest);
        TryEach([&] { other + *time; }, [&] { other - *time; });
    } else if (const auto* dateTime = dynamic_cast<const ZelDtDateTime*>(&value)) {
        UseDateTime(*dateTime, other, longest);
        if (const auto* date = dynamic_cast<const ZelDtDateZp*>(&value))
            UseDate(*date, longest);
    } else if (const auto* flag = dynamic_cast<const ZelDtBool*>(&value)) {
        UseBool(*flag);
    } else if (const auto* character = dynamic_cast<const ZelDtChar*>(&value)) {
        UseChar(*character);
    }
}

void Use(ZelDtBasis& value)
{
    UseByClass(value);
    TryEach([&] { value.ConvToOFL(nullptr); },
            [&] {
                int defined = 0;
                unsigned short version = 0;
                const ZelDtString text = value.ConvToExtern(defined, version);
                value.SetFromExtern(&text, defined, version);
            },
            [&] { std::unique_ptr<ZelDtBasis>(value.NewObject())->Assign(value); },
            [&] { value.Clear(); });
}

template <typename... Values>
void LoadMembers(CArchive& ar, Values&&... values)
{
    for (int i = 0; i < 1000; ++i) {
        (values.Serialize(ar), ...);
        (Use(values), ...);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    std::vector<BYTE> bytes(data + 1, data + size);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));

    Tolerating([&] {
        CArchive ar(&file, CArchive::load);
        if (data[0] % 2 == 0) {
            // Objects until the archive ends or fails.
            std::vector<std::unique_ptr<CObject>> objects;
            for (int i = 0; i < 1000; ++i) {
                CObject* const object = ar.ReadObject(RUNTIME_CLASS(ZelDtBasis));
                bool known = object == nullptr;
                for (const auto& other : objects)
                    known = known || other.get() == object;
                if (!known)
                    objects.emplace_back(object);
            }
            for (const auto& object : objects)
                Use(static_cast<ZelDtBasis&>(*object));
        } else {
            LoadMembers(ar, ZelDtLong(), ZelDtString(), ZelDtBool(), ZelDtChar(), ZelDtTime(),
                        ZelDtDateTime(), ZelDtDateZp());
        }
    });
    return 0;
}
