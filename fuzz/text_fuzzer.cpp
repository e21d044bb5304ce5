#include <ZelDt.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// Any bytes as texts of every kind. What a value writes, it reads back; everything else is an
// error of the library.

namespace {

template <typename Body>
void Tolerating(const Body& body)
{
    try {
        body();
    } catch (ZelEhBasis* e) {
        delete e;
    }
}

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void ReadNumber(const std::string& text)
{
    Tolerating([&] {
        const ZelDtLong number(text.c_str());
        Require(ZelDtLong(ZelDtString(number)) == number);
    });
    Tolerating([&] {
        ZelDtLong number;
        number.SetFromOFL(text.c_str(), nullptr);
        if (!number.IsDefined())
            return;
        ZelDtLong again;
        again.SetFromOFL(number.ConvToOFL(nullptr), nullptr);
        Require(again == number);
    });
}

void EditText(const std::string& text, std::uint8_t choice)
{
    const std::string::size_type middle = text.size() / 2;
    ZelDtString value(CString(text.data(), static_cast<int>(middle)));
    const ZelDtString part(CString(text.data() + middle, static_cast<int>(text.size() - middle)));
    Tolerating([&] { value.Change(part, value, ZelDtString::kiAll); });
    Tolerating([&] { value.DeleteParts(part, choice % 2 != 0 ? ZelDtString::kiAll : choice); });
    Tolerating([&] { value.Insert(part, choice); });
    Tolerating([&] { value.Copy(value, choice); });
    Tolerating([&] { value.Trim(ZelDtString::kiLeftRight); });
    Tolerating([&] { value.FillUp('x', choice, ZelDtString::kiLeft); });
    value.ToUpper();
    const ZelDtString literal = value.ConvToSQL(choice % 3 == 0 ? 850 : 0);
    Require(literal.GetLength() >= value.GetLength() + 2 || !value.IsDefined());
    Require(value.Compare(value, 1) == 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string text(data + 1, data + size);
    ReadNumber(text);
    EditText(text, data[0]);
    return 0;
}
