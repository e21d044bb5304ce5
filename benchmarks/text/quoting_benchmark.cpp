/// SQL literals: the text in double quotes with the inner ones doubled.
///
/// naive: a loop that appends byte by byte to a string kept from text to text. memcpy: the bytes
/// alone, without quotes; the limit.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "text/DTSTRING.h"
#include "text/IMP/DTQUOTE.h"

#include <cstring>

namespace zelbench {

namespace {

constexpr std::size_t kTexts = 512;

/// A text in which about one blank of `quoteEvery` is a quote instead; none for 0.
std::string TextWithQuotes(std::size_t length, std::size_t quoteEvery, unsigned seed)
{
    std::string text = GermanText(length, seed);
    Random random(seed);
    for (char& c : text) {
        if (c == ' ' && quoteEvery != 0 && Below(random, quoteEvery) == 0)
            c = '"';
    }
    return text;
}

Operands<std::string> MakeTexts(std::size_t length, std::size_t quoteEvery)
{
    std::vector<std::string> texts;
    for (unsigned seed = 0; seed < kTexts; ++seed)
        texts.push_back(TextWithQuotes(length, quoteEvery, seed));
    return Share(std::move(texts));
}

void AppendQuoted(std::string& literal, const std::string& text)
{
    literal.push_back('"');
    for (const char c : text) {
        literal.push_back(c);
        if (c == '"')
            literal.push_back(c);
    }
    literal.push_back('"');
}

using Buffer = std::shared_ptr<char[]>;

Buffer MakeBuffer(std::size_t length)
{
    return Buffer(new char[2 * length + 2]);
}

/// Into memory that is there.
void AddCoreJob(const std::string& name, std::size_t length, const Operands<std::string>& texts)
{
    // Where it lies matters, so all contenders use the same.
    const Buffer buffer = MakeBuffer(length);
    Job(name)
        .Add("ours", texts,
             [buffer](const std::string& text) {
                 const std::size_t size = zeldt::QuotedLength(text);
                 zeldt::WriteQuoted(text, buffer.get());
                 return std::string_view(buffer.get(), size);
             })
        .Add("naive", texts,
             [literal = std::make_shared<std::string>()](const std::string& text) {
                 literal->clear();
                 AppendQuoted(*literal, text);
                 return std::string_view(*literal);
             })
        .AddLimit("memcpy", texts, [buffer](const std::string& text) {
            std::memcpy(buffer.get(), text.data(), text.size());
            return std::string_view(buffer.get(), text.size());
        });
}

/// From one text object to a new one.
void AddValueJob(const std::string& name, const Operands<std::string>& texts)
{
    std::vector<ZelDtString> values;
    for (const std::string& text : *texts)
        values.emplace_back(text.c_str());
    Job(name)
        .Add("ours", Share(std::move(values)),
             [](const ZelDtString& value) { return value.ConvToSQL(); })
        .Add("naive", texts, [](const std::string& text) {
            std::string literal;
            AppendQuoted(literal, text);
            return literal;
        });
}

} // namespace

void AddQuotingJobs()
{
    for (const std::size_t length : {14, 1000}) {
        const std::string suffix = "/" + std::to_string(length);
        const auto without = MakeTexts(length, 0);
        const auto with = MakeTexts(length, 8);
        AddCoreJob("quote" + suffix, length, without);
        AddCoreJob("quote" + suffix + "-quotes", length, with);
        AddValueJob("quote-value" + suffix, without);
        AddValueJob("quote-value" + suffix + "-quotes", with);
    }
}

} // namespace zelbench
