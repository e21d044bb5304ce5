#ifndef ZELDT_BENCHMARKS_PLATFORM_FORMATS_SHOWING_H
#define ZELDT_BENCHMARKS_PLATFORM_FORMATS_SHOWING_H

/// The jobs that every kind of value has: it is shown and read, by the format alone and by a value
/// object. The contenders are the same in all of them.

#include "benchmarks/contest.h"
#include "platform/formats/ZelFormat.h"

#include <cstdint>

#ifdef ZELBENCH_HAVE_ICU
#include <unicode/unistr.h>
#endif

namespace zelbench {

/// Room for every text that is shown here.
inline constexpr std::size_t kShownRoom = 64;

inline std::string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

inline CString ToCString(const std::string& text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

/// A new text, compared by its bytes.
struct NewText {
    CString text;

    std::string ReadBack() const { return std::string(ViewOf(text)); }
};

#ifdef ZELBENCH_HAVE_ICU
inline std::string ToAscii(const icu::UnicodeString& text)
{
    std::string ascii;
    return text.toUTF8String(ascii);
}

struct NewIcuText {
    icu::UnicodeString text;

    std::string ReadBack() const { return ToAscii(text); }
};

struct IcuTextThere {
    const icu::UnicodeString* text;

    std::string ReadBack() const { return ToAscii(*text); }
};
#endif

/// format/show-...: into memory that is there. display/show-...: as a new text.
class ShowJobs {
public:
    explicit ShowJobs(const std::string& kind)
        : m_into("format/show-" + kind), m_made("display/show-" + kind)
    {}

    /// `show` gives its text to a CString.
    template <typename Number, typename Show>
    void Ours(const Operands<Number>& numbers, const Show& show)
    {
        const auto text = std::make_shared<CString>();
        m_into.Add("ours", numbers, [text, show](const Number& number) {
            show(number, *text);
            return ViewOf(*text);
        });
    }

    /// Value objects, by a format or, with null, the default one.
    template <typename Value>
    void Values(const Operands<Value>& values, const ZelFormat* format)
    {
        m_made.Add("ours", values,
                   [format](const Value& value) { return NewText{value.ConvToOFL(format)}; });
    }

    /// `write` puts its text at a place in memory and returns the end.
    template <typename Number, typename Write>
    void Peer(const std::string& contender, const Operands<Number>& numbers, const Write& write)
    {
        struct Memory {
            char bytes[kShownRoom];
        };
        const auto memory = std::make_shared<Memory>();
        m_into.Add(contender, numbers, [memory, write](const Number& number) {
            const char* const end = write(number, memory->bytes);
            return std::string_view(memory->bytes, static_cast<std::size_t>(end - memory->bytes));
        });
        m_made.Add(contender, numbers, [write](const Number& number) {
            char bytes[kShownRoom];
            return std::string(bytes, write(number, bytes));
        });
    }

#ifdef ZELBENCH_HAVE_ICU
    /// `write` gives its text to a UnicodeString, which is empty.
    template <typename Number, typename Write>
    void Icu(const std::string& contender, const Operands<Number>& numbers, const Write& write)
    {
        const auto text = std::make_shared<icu::UnicodeString>();
        m_into.Add(contender, numbers, [text, write](const Number& number) {
            text->remove();
            write(number, *text);
            return IcuTextThere{text.get()};
        });
        m_made.Add(contender, numbers, [write](const Number& number) {
            NewIcuText made;
            write(number, made.text);
            return made;
        });
    }
#endif

private:
    Job m_into;
    Job m_made;
};

/// format/read-...: what the text says, alone. display/read-...: an old object takes it over.
class ReadJobs {
public:
    ReadJobs(const std::string& kind, const std::vector<std::string>& texts)
        : m_alone("format/read-" + kind), m_taken("display/read-" + kind), m_texts(Share(texts))
    {}

    /// `read` makes a result of a CString.
    template <typename Read>
    void Ours(const Read& read)
    {
        std::vector<CString> texts;
        for (const std::string& text : *m_texts)
            texts.push_back(ToCString(text));
        m_alone.Add("ours", Share(std::move(texts)), read);
    }

    /// A value object, by a format or, with null, the default one. `resultOf` makes of it what
    /// `read` makes of the texts.
    template <typename Value, typename ResultOf>
    void Values(const ZelFormat* format, const ResultOf&)
    {
        struct Taken {
            const Value* value;

            auto ReadBack() const { return ResultOf{}(*value); }
        };
        const auto value = std::make_shared<Value>();
        m_taken.Add("ours", m_texts, [value, format](const std::string& text) {
            value->SetFromOFL(text.c_str(), format);
            return Taken{value.get()};
        });
    }

    /// `read` makes a result of a text.
    template <typename Read>
    void Peer(const std::string& contender, const Read& read)
    {
        m_alone.Add(contender, m_texts, read);
        m_taken.Add(contender, m_texts, read);
    }

#ifdef ZELBENCH_HAVE_ICU
    /// `read` makes a result of 16-bit text.
    template <typename Read>
    void Icu(const std::string& contender, const Read& read)
    {
        std::vector<std::u16string> converted;
        for (const std::string& text : *m_texts)
            converted.emplace_back(text.begin(), text.end());
        const auto texts = Share(std::move(converted));
        m_alone.Add(contender, texts, read);
        m_taken.Add(contender, texts, read);
    }
#endif

private:
    Job m_alone;
    Job m_taken;
    Operands<std::string> m_texts;
};

/// The jobs with dates, times of day and durations.
void AddDateFormats();

} // namespace zelbench

#endif
