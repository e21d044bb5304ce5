/// Editing texts: ZelDtString against a std::string that is made to do the same.
///
/// Texts that are edited are first copied into an object that keeps its room, on both sides; the
/// time contains that copy.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "platform/runtime/ansi.h"
#include "text/DTSTRING.h"

#include <functional>
#include <memory>
#include <string>

namespace zelbench {

namespace {

std::string_view ViewOf(const ZelDtString& text)
{
    return {text.GetValue(), static_cast<std::size_t>(text.GetLength())};
}

std::string_view ViewOf(const std::string& text)
{
    return text;
}

template <typename Text>
Text TextFrom(const std::string& source)
{
    return Text(source.c_str());
}

template <typename Text>
Operands<Text> TextsFrom(const std::vector<std::string>& sources)
{
    std::vector<Text> texts;
    for (const std::string& source : sources)
        texts.push_back(TextFrom<Text>(source));
    return Share(std::move(texts));
}

std::vector<std::string> Lines(std::size_t length)
{
    std::vector<std::string> lines;
    for (unsigned seed = 0; seed < kFewOperands; ++seed)
        lines.push_back(GermanText(length, seed));
    return lines;
}

// What a caller of std::string writes for the functions of the value

void ChangeAll(ZelDtString& text, const ZelDtString& oldPart, const ZelDtString& newPart)
{
    text.Change(oldPart, newPart, ZelDtString::kiAll);
}

void ChangeAll(std::string& text, const std::string& oldPart, const std::string& newPart)
{
    for (std::size_t at = text.find(oldPart); at != std::string::npos;
         at = text.find(oldPart, at + newPart.size()))
        text.replace(at, oldPart.size(), newPart);
}

void DeleteAll(ZelDtString& text, const ZelDtString& part)
{
    text.DeleteParts(part, ZelDtString::kiAll);
}

void DeleteAll(std::string& text, const std::string& part)
{
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part))
        text.erase(at, part.size());
}

void Trim(ZelDtString& text)
{
    text.Trim(ZelDtString::kiLeftRight);
}

void Trim(std::string& text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, text.find_first_not_of(' '));
}

void Insert(ZelDtString& text, const ZelDtString& part, int position)
{
    text.Insert(part, position);
}

void Insert(std::string& text, const std::string& part, int position)
{
    text.insert(static_cast<std::size_t>(position), part);
}

void Split(const ZelDtString& text, ZelDtString& left, ZelDtString& right, int position)
{
    text.Split(left, right, position);
}

void Split(const std::string& text, std::string& left, std::string& right, int position)
{
    left.assign(text, 0, static_cast<std::size_t>(position));
    right.assign(text, static_cast<std::size_t>(position));
}

struct StringJobs {
    static constexpr int kAppends = 1000;
    static constexpr int kInserts = 8;

    Job construct{"string/construct"};
    Job appendChar{"string/append-char", kAppends};
    Job appendText{"string/append-text", kFewOperands};
    Job insert{"string/insert", kInserts};
    Job change{"string/change-all"};
    Job deleteParts{"string/delete-all"};
    Job changeLong{"string/change-all-128KB"};
    Job trim{"string/trim"};
    Job split{"string/split"};

    template <typename Text>
    void Add(const std::string& contender)
    {
        construct.Add(contender, Share(Names(kFewOperands, 21)),
                      [](const std::string& name) { return TextFrom<Text>(name); });
        AddAppending<Text>(contender);
        AddInserting<Text>(contender);
        AddReplacing<Text>(contender);
        AddTrimming<Text>(contender);
        AddSplitting<Text>(contender);
    }

private:
    /// Texts grow from nothing.
    template <typename Text>
    void AddAppending(const std::string& contender)
    {
        appendChar.Add(contender, Share(std::vector<int>{0, 7, 13}), [](int first) {
            Text text("");
            for (int i = 0; i < kAppends; ++i)
                text += static_cast<char>('a' + (first + i) % 26);
            return text;
        });
        const auto names = TextsFrom<Text>(Names(kFewOperands, 22));
        appendText.Add(contender, ShareOne(names), [](const Operands<Text>& parts) {
            Text text("");
            for (const Text& part : *parts)
                text += part;
            return text;
        });
    }

    template <typename Text>
    void AddInserting(const std::string& contender)
    {
        const auto text = std::make_shared<Text>("");
        const auto part = std::make_shared<const Text>("neu ");
        insert.Add(contender, TextsFrom<Text>(Lines(80)), [=](const Text& line) {
            *text = line;
            for (int i = 0; i < kInserts; ++i)
                Insert(*text, *part, 9 * i);
            return ViewOf(*text);
        });
    }

    template <typename Text>
    void AddReplacing(const std::string& contender)
    {
        const auto text = std::make_shared<Text>("");
        const auto blank = std::make_shared<const Text>(" ");
        const auto comma = std::make_shared<const Text>(", ");
        const auto lines = TextsFrom<Text>(Lines(200));
        const auto changeAll = [=](const Text& line) {
            *text = line;
            ChangeAll(*text, *blank, *comma);
            return ViewOf(*text);
        };
        change.Add(contender, lines, changeAll);
        // Long enough for the moving of bytes to count, short enough for the other's quadratic
        // loop.
        changeLong.Add(contender, TextsFrom<Text>({GermanText(kLongText / 8, 23)}), changeAll);
        deleteParts.Add(contender, lines, [=](const Text& line) {
            *text = line;
            DeleteAll(*text, *blank);
            return ViewOf(*text);
        });
    }

    template <typename Text>
    void AddTrimming(const std::string& contender)
    {
        std::vector<std::string> padded;
        Random random(24);
        for (const std::string& name : Names(kFewOperands, 25))
            padded.push_back(std::string(Below(random, 6), ' ') + name +
                             std::string(Below(random, 20), ' '));
        const auto text = std::make_shared<Text>("");
        trim.Add(contender, TextsFrom<Text>(padded), [=](const Text& line) {
            *text = line;
            Trim(*text);
            return ViewOf(*text);
        });
    }

    template <typename Text>
    void AddSplitting(const std::string& contender)
    {
        const auto left = std::make_shared<Text>("");
        const auto right = std::make_shared<Text>("");
        split.Add(contender, TextsFrom<Text>(Lines(80)), [=](const Text& line) {
            Split(line, *left, *right, 30);
            return ViewOf(*right);
        });
    }
};

// Long texts: times are those of a byte, so that they show how they grow with the text. Whoever
// knows std::string puts the pieces into a new one there.

void ChangeAllAtOnce(ZelDtString& text, const ZelDtString& oldPart, const ZelDtString& newPart)
{
    ChangeAll(text, oldPart, newPart);
}

void ChangeAllAtOnce(std::string& text, const std::string& oldPart, const std::string& newPart)
{
    std::string changed;
    std::size_t from = 0;
    for (std::size_t at = text.find(oldPart); at != std::string::npos;
         at = text.find(oldPart, from)) {
        changed.append(text, from, at - from).append(newPart);
        from = at + oldPart.size();
    }
    text = changed.append(text, from);
}

void DeleteAllAtOnce(ZelDtString& text, const ZelDtString& part)
{
    DeleteAll(text, part);
}

/// What a removal joins goes too.
void DeleteAllAtOnce(std::string& text, const std::string& part)
{
    std::string kept;
    for (const char c : text) {
        kept.push_back(c);
        if (kept.ends_with(part))
            kept.resize(kept.size() - part.size());
    }
    text = std::move(kept);
}

bool Has(ZelDtString& text, const ZelDtString& part)
{
    return text.GetPos(part, ZelDtString::kiFirst) != ZelDtString::kiNotFound;
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

void ToUpper(ZelDtString& text)
{
    text.ToUpper();
}

void ToUpper(std::string& text)
{
    for (char& c : text)
        c = static_cast<char>(zelrt::AnsiToUpper(static_cast<unsigned char>(c)));
}

/// A length of a text and what it is called.
struct Size {
    std::size_t bytes;
    const char* name;
};

/// A text that is made when it is wanted first, by jobs that are run.
template <typename Text>
class LazyText {
public:
    explicit LazyText(std::function<std::string()> make) : m_make(std::move(make)) {}

    Text& Get() const
    {
        if (!m_text)
            m_text = std::make_unique<Text>(TextFrom<Text>(m_make()));
        return *m_text;
    }

private:
    std::function<std::string()> m_make;
    mutable std::unique_ptr<Text> m_text;
};

struct LongTextJobs {
    explicit LongTextJobs(const Size& size)
        : m_size(size), m_change(Named("change-all")), m_delete(Named("delete-all")),
          m_deleteNested(Named("delete-nested")), m_find(Named("find")),
          m_findNearly(Named("find-nearly")), m_upper(Named("upper"))
    {}

    template <typename Text>
    void Add(const std::string& contender)
    {
        const std::size_t bytes = m_size.bytes;
        const auto prose = Lazy<Text>([bytes] { return GermanText(bytes, 26); });
        const auto nested = Lazy<Text>(
            [bytes] { return std::string(bytes / 2, '(') + std::string(bytes / 2, ')'); });
        AddEditing<Text>(m_change, contender, prose, [](Text& text) {
            ChangeAllAtOnce(text, TextFrom<Text>(" "), TextFrom<Text>(", "));
        });
        AddEditing<Text>(m_delete, contender, prose,
                         [](Text& text) { DeleteAllAtOnce(text, TextFrom<Text>("en")); });
        AddEditing<Text>(m_deleteNested, contender, nested,
                         [](Text& text) { DeleteAllAtOnce(text, TextFrom<Text>("()")); });
        AddEditing<Text>(m_upper, contender, prose, [](Text& text) { ToUpper(text); });
        AddFinding<Text>(m_find, contender, prose,
                         Lazy<Text>([] { return std::string("no such words"); }));
        if (contender == "ours") {
            // The other one would take hours.
            AddFinding<Text>(m_findNearly, contender, nested, Lazy<Text>([bytes] {
                                 const std::string run(bytes / 32, '(');
                                 return run + ")" + run;
                             }));
        }
    }

private:
    template <typename Text>
    using LazyPtr = std::shared_ptr<const LazyText<Text>>;

    template <typename Text>
    static LazyPtr<Text> Lazy(std::function<std::string()> make)
    {
        return std::make_shared<const LazyText<Text>>(std::move(make));
    }

    Job Named(const char* what) const
    {
        return Job(std::string("string/") + what + "-" + m_size.name, m_size.bytes);
    }

    template <typename Text, typename Edit>
    static void AddEditing(Job& job, const std::string& contender, const LazyPtr<Text>& content,
                           const Edit& edit)
    {
        const auto text = std::make_shared<Text>("");
        job.Add(contender, ShareOne(content), [=](const LazyPtr<Text>& original) {
            *text = original->Get();
            edit(*text);
            return ViewOf(*text);
        });
    }

    template <typename Text>
    static void AddFinding(Job& job, const std::string& contender, const LazyPtr<Text>& content,
                           const LazyPtr<Text>& part)
    {
        job.Add(contender, ShareOne(part), [content](const LazyPtr<Text>& wanted) {
            return int{Has(content->Get(), wanted->Get())};
        });
    }

    Size m_size;
    Job m_change;
    Job m_delete;
    Job m_deleteNested;
    Job m_find;
    Job m_findNearly;
    Job m_upper;
};

} // namespace

void AddStringJobs()
{
    StringJobs jobs;
    jobs.Add<ZelDtString>("ours");
    jobs.Add<std::string>("std_string");
    for (const Size& size : {Size{kLongText, "1MB"}, Size{32 * kLongText, "32MB"}}) {
        LongTextJobs longTexts(size);
        longTexts.Add<ZelDtString>("ours");
        longTexts.Add<std::string>("std_string");
    }
}

} // namespace zelbench
