#include "tests/text/string_model.h"
#include "tests/text/string_testing.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>

// Random sequences of operations on a handful of strings and, step by step, on a simple model of
// each. Operands are drawn from the same handful, so that a string often meets itself.

using namespace zeltest;

namespace {

const int kAll = ZelDtString::kiAll;
const int kSingle = ZelDtString::kiSingle;
const int kLeft = ZelDtString::kiLeft;
const int kRight = ZelDtString::kiRight;
const int kNext = ZelDtString::kiNext;
const int kFirst = ZelDtString::kiFirst;

/// Letters that make matches frequent, and some that matter to one function or another.
constexpr char kLetters[] = {'a', 'a', 'a',    'b',    'b',    ' ',    'A',
                             '1', '"', '\xE4', '\xC4', '\xE9', '\xDF', '\0'};

class Machine {
public:
    Machine(std::uint32_t seed, bool withNul)
        : m_random(seed), m_letterCount(withNul ? std::size(kLetters) : std::size(kLetters) - 1)
    {
        for (std::size_t i = 0; i < kCount; ++i) {
            const auto mode = static_cast<ZelDtWorkingMode>(i % 3);
            m_strings[i] = std::make_unique<ZelDtString>(mode);
            m_models[i].mode = mode;
            m_models[i].defined = mode == ZelDtWmAlwaysDefined ? 1 : 0;
        }
    }

    void Run(int steps)
    {
        for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i)
            Step(i);
    }

private:
    static constexpr std::size_t kCount = 6;
    using Operation = void (Machine::*)(std::size_t, std::size_t);

    int Draw(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }
    std::size_t DrawOne() { return static_cast<std::size_t>(Draw(0, kCount - 1)); }

    std::string DrawText(int longest)
    {
        std::string text(At(Draw(0, longest)), ' ');
        for (char& c : text)
            c = kLetters[Draw(0, static_cast<int>(m_letterCount) - 1)];
        return text;
    }

    char DrawCharacter()
    {
        const std::string text = DrawText(1);
        return text.empty() || text[0] == '\0' ? 'b' : text[0];
    }

    /// A position in and around the text of a model.
    int DrawPosition(const StringModel& m)
    {
        return Draw(0, 9) == 0 ? Draw(-2, m.Length() + 3) : Draw(0, m.Length());
    }

    /// A mode of DeleteParts and Change.
    int DrawHow(const StringModel& m)
    {
        const int kind = Draw(0, 5);
        return kind < 2 ? kAll : kind < 4 ? kSingle : DrawPosition(m);
    }

    void Step(int number);
    void Check(const char* operation, int step);
    void Expect(unsigned long error, const std::function<void()>& action);

    void AssignString(std::size_t t, std::size_t s);
    void AssignText(std::size_t t, std::size_t);
    void AssignTail(std::size_t t, std::size_t s);
    void AssignCharacter(std::size_t t, std::size_t);
    void AppendString(std::size_t t, std::size_t s);
    void AppendText(std::size_t t, std::size_t s);
    void Concatenate(std::size_t t, std::size_t s);
    void Rebuild(std::size_t t, std::size_t s);
    void ClearOne(std::size_t t, std::size_t);
    void Forget(std::size_t t, std::size_t);
    void ResetModified(std::size_t t, std::size_t);
    void Search(std::size_t t, std::size_t s);
    void DeleteParts(std::size_t t, std::size_t s);
    void Change(std::size_t t, std::size_t s);
    void Copy(std::size_t t, std::size_t s);
    void CopyParts(std::size_t t, std::size_t s);
    void Insert(std::size_t t, std::size_t s);
    void Cut(std::size_t t, std::size_t);
    void Split(std::size_t t, std::size_t s);
    void Trim(std::size_t t, std::size_t);
    void FillUp(std::size_t t, std::size_t);
    void ChangeCase(std::size_t t, std::size_t);
    void SetAt(std::size_t t, std::size_t);
    void Extern(std::size_t t, std::size_t s);
    void Archive(std::size_t t, std::size_t s);
    void Compare(std::size_t t, std::size_t s);
    void Part(std::size_t t, std::size_t);

    bool MayPlace(const StringModel& target, const StringModel& source, int position,
                  unsigned long& error) const;

    std::mt19937 m_random;
    std::size_t m_letterCount;
    std::array<StringPtr, kCount> m_strings;
    std::array<StringModel, kCount> m_models;
};

void Machine::Step(int number)
{
    struct Named {
        const char* name;
        Operation operation;
    };
    static constexpr Named kOperations[] = {
        {"AssignString", &Machine::AssignString},
        {"AssignText", &Machine::AssignText},
        {"AssignText", &Machine::AssignText},
        {"AssignTail", &Machine::AssignTail},
        {"AssignCharacter", &Machine::AssignCharacter},
        {"AppendString", &Machine::AppendString},
        {"AppendText", &Machine::AppendText},
        {"Concatenate", &Machine::Concatenate},
        {"Rebuild", &Machine::Rebuild},
        {"ClearOne", &Machine::ClearOne},
        {"Forget", &Machine::Forget},
        {"ResetModified", &Machine::ResetModified},
        {"ResetModified", &Machine::ResetModified},
        {"ResetModified", &Machine::ResetModified},
        {"Search", &Machine::Search},
        {"Search", &Machine::Search},
        {"DeleteParts", &Machine::DeleteParts},
        {"Change", &Machine::Change},
        {"Copy", &Machine::Copy},
        {"CopyParts", &Machine::CopyParts},
        {"Insert", &Machine::Insert},
        {"Insert", &Machine::Insert},
        {"Cut", &Machine::Cut},
        {"Split", &Machine::Split},
        {"Trim", &Machine::Trim},
        {"FillUp", &Machine::FillUp},
        {"ChangeCase", &Machine::ChangeCase},
        {"SetAt", &Machine::SetAt},
        {"Extern", &Machine::Extern},
        {"Archive", &Machine::Archive},
        {"Compare", &Machine::Compare},
        {"Part", &Machine::Part},
    };
    const Named& chosen = kOperations[Draw(0, static_cast<int>(std::size(kOperations)) - 1)];
    const std::size_t target = DrawOne();
    std::size_t source = Draw(0, 3) == 0 ? target : DrawOne();
    if (m_models[target].text.size() + m_models[source].text.size() > 200) {
        m_strings[target]->Clear();
        m_models[target].Clear();
        source = target;
    }
    ::testing::Message trace;
    trace << "step " << number << ": " << chosen.name << " of string " << target << " with string "
          << source << " = " << Escaped(m_models[source].text) << ", before "
          << Escaped(m_models[target].text) << " in mode " << m_models[target].mode
          << (m_models[target].defined ? " defined" : " undefined");
    SCOPED_TRACE(trace);
    (this->*chosen.operation)(target, source);
    Check(chosen.name, number);
}

void Machine::Check(const char* operation, int step)
{
    for (std::size_t i = 0; i < kCount; ++i) {
        const StringModel& m = m_models[i];
        const ZelDtString& s = *m_strings[i];
        EXPECT_EQ(ContentOf(s), (Content{m.text, m.defined, m.modified}))
            << "string " << i << " after " << operation << ", step " << step;
        EXPECT_EQ(s.GetAllocLength(), m.alloc) << "string " << i;
        EXPECT_EQ(static_cast<int>(s.GetWorkingMode()), m.mode) << "string " << i;
    }
}

/// Runs the action, which must fail with that number, or not at all for 0.
void Machine::Expect(unsigned long error, const std::function<void()>& action)
{
    const Caught caught = Catch(action);
    if (error == 0)
        EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
    else
        EXPECT_EQ(caught.error.number, error);
}

// Assignment and appending

void Machine::AssignString(std::size_t t, std::size_t s)
{
    *m_strings[t] = *m_strings[s];
    if (t != s)
        m_models[t].AssignFrom(m_models[s]);
}

void Machine::AssignText(std::size_t t, std::size_t)
{
    const std::string text = DrawText(12);
    if (Draw(0, 1) == 0) {
        *m_strings[t] = Framework(text);
        m_models[t].Assign(text);
    } else {
        *m_strings[t] = text.c_str();
        m_models[t].Assign(text.c_str());
    }
}

void Machine::AssignTail(std::size_t t, std::size_t s)
{
    const int from = Draw(0, m_models[s].Length());
    const std::string tail = m_models[s].text.c_str() + from;
    *m_strings[t] = static_cast<const char*>(*m_strings[s]) + from;
    m_models[t].Assign(tail);
}

void Machine::AssignCharacter(std::size_t t, std::size_t)
{
    const char c = Draw(0, 9) == 0 ? '\0' : DrawCharacter();
    *m_strings[t] = c;
    StringModel& m = m_models[t];
    m.Mark(m.text != std::string(1, c));
    m.Store(std::string(1, c));
    m.SetDefined(1);
}

void Machine::AppendString(std::size_t t, std::size_t s)
{
    *m_strings[t] += *m_strings[s];
    if (m_models[t].defined != 0 || m_models[s].defined != 0)
        m_models[t].Append(std::string(m_models[s].text));
}

void Machine::AppendText(std::size_t t, std::size_t s)
{
    const int kind = Draw(0, 3);
    std::string text = DrawText(6);
    if (kind == 0) {
        *m_strings[t] += Framework(text);
    } else if (kind == 1) {
        text = DrawCharacter();
        *m_strings[t] += text[0];
    } else if (kind == 2) {
        const int from = Draw(0, m_models[s].Length());
        text = std::string(m_models[s].text.c_str() + from);
        *m_strings[t] += static_cast<const char*>(*m_strings[s]) + from;
    } else {
        text = text.c_str();
        *m_strings[t] += text.c_str();
    }
    m_models[t].Append(text);
}

void Machine::Concatenate(std::size_t t, std::size_t s)
{
    const std::size_t other = DrawOne();
    const StringModel& a = m_models[s];
    const StringModel& b = m_models[other];
    const ZelDtString sum = *m_strings[s] + *m_strings[other];
    StringModel expected;
    if (a.defined == 0 || b.defined == 0) {
        expected = a.defined == 0 ? b : a;
    } else {
        expected.text = a.text + b.text;
        expected.defined = 1;
        expected.modified = sum.IsModified();
    }
    EXPECT_EQ(ContentOf(sum), (Content{expected.text, expected.defined, expected.modified}));
    EXPECT_EQ(static_cast<int>(sum.GetWorkingMode()), expected.mode);
    EXPECT_EQ(sum.GetAllocLength(), expected.Length());
    *m_strings[t] = sum;
    m_models[t].AssignFrom(expected);
}

void Machine::Rebuild(std::size_t t, std::size_t s)
{
    m_strings[t] = std::make_unique<ZelDtString>(*m_strings[s]);
    StringModel copy = m_models[s];
    copy.alloc = copy.Length();
    if (Draw(0, 1) == 0) {
        const int room = Draw(-1, 30);
        const std::string text = DrawText(12).c_str();
        m_strings[t] =
            std::make_unique<ZelDtString>(text.c_str(), ZelDtString::kiDefaultLength, room);
        copy = StringModel();
        copy.text = text;
        copy.defined = 1;
        copy.alloc = std::max(room, copy.Length());
    }
    // A match that the original remembered is none of the copy's.
    m_strings[t]->SetWorkingMode(static_cast<ZelDtWorkingMode>(copy.mode));
    copy.last = -1;
    m_models[t] = copy;
}

// State

void Machine::ClearOne(std::size_t t, std::size_t)
{
    m_strings[t]->Clear();
    m_models[t].Clear();
}

/// Makes a string undefined that keeps its text.
void Machine::Forget(std::size_t t, std::size_t)
{
    if (Draw(0, 2) != 0 || m_models[t].mode == ZelDtWmAlwaysDefined)
        return;
    Undefine(*m_strings[t]);
    m_models[t].defined = 0;
    m_models[t].modified = 0;
}

void Machine::ResetModified(std::size_t t, std::size_t)
{
    EXPECT_EQ(m_strings[t]->GetAndResetModified(0), m_models[t].modified);
    m_models[t].modified = 0;
}

// Searching and replacing

void Machine::Search(std::size_t t, std::size_t s)
{
    const int how = Draw(0, 2) == 0 ? kFirst : kNext;
    if (Draw(0, 3) == 0) {
        EXPECT_EQ(m_strings[t]->GetPos(*m_strings[s], how),
                  m_models[t].GetPos(std::string(m_models[s].text), how));
        return;
    }
    const std::string pattern = DrawText(2);
    EXPECT_EQ(m_strings[t]->GetPos(*Make(pattern), how), m_models[t].GetPos(pattern, how));
}

void Machine::DeleteParts(std::size_t t, std::size_t s)
{
    const int how = DrawHow(m_models[t]);
    const bool drawn = Draw(0, 2) != 0;
    const std::string part = drawn ? DrawText(3) : m_models[s].text;
    const StringPtr made = Make(part);
    const ZelDtString& argument = drawn ? *made : *m_strings[s];
    const int expected = m_models[t].DeleteParts(part, how);
    int result = 0;
    Expect(expected < 0 ? 3 : 0, [&] { result = m_strings[t]->DeleteParts(argument, how); });
    EXPECT_EQ(result, std::max(expected, 0)) << Escaped(part) << ", mode " << how;
}

void Machine::Change(std::size_t t, std::size_t s)
{
    const int how = DrawHow(m_models[t]);
    const int kind = Draw(0, 3);
    const StringPtr first = Make(DrawText(3));
    const StringPtr second = Make(DrawText(3));
    const std::size_t other = DrawOne();
    const ZelDtString& oldPart = kind == 0 ? *m_strings[s] : *first;
    const ZelDtString& newPart = kind == 1   ? *m_strings[s]
                                 : kind == 0 ? *m_strings[other]
                                             : *second;
    // A missing value with text cannot take what is put in.
    if (m_models[t].IsMissing())
        return;
    const std::string oldText = BytesOf(oldPart);
    const std::string newText = BytesOf(newPart);
    const int expected = newPart.IsMissing() != 0 ? 0 : m_models[t].Change(oldText, newText, how);
    int result = 0;
    Expect(expected < 0 ? 3 : 0, [&] { result = m_strings[t]->Change(oldPart, newPart, how); });
    EXPECT_EQ(result, std::max(expected, 0))
        << Escaped(oldText) << " to " << Escaped(newText) << ", mode " << how;
}

// Putting in and cutting

/// Whether Copy, CopyParts and Insert go on; else their error.
bool Machine::MayPlace(const StringModel& target, const StringModel& source, int position,
                       unsigned long& error) const
{
    const bool missing = target.IsMissing() || source.IsMissing();
    const bool outside = position < 0 || position > target.Length();
    error = missing ? 2 : outside ? 3 : 0;
    return error == 0;
}

void Machine::Copy(std::size_t t, std::size_t s)
{
    StringModel& m = m_models[t];
    const std::string source = m_models[s].text;
    const int position = DrawPosition(m);
    unsigned long error = 0;
    if (MayPlace(m, m_models[s], position, error)) {
        m.Store(m.text.substr(0, At(position)) + source);
        m.modified = 1;
        m.SetDefined(1);
    }
    Expect(error, [&] { m_strings[t]->Copy(*m_strings[s], position); });
}

void Machine::CopyParts(std::size_t t, std::size_t s)
{
    StringModel& m = m_models[t];
    const std::string source = m_models[s].text;
    const int position = DrawPosition(m);
    unsigned long error = 0;
    if (MayPlace(m, m_models[s], position, error) && !source.empty()) {
        std::string text = m.text;
        text.replace(At(position), std::min(source.size(), text.size() - At(position)), source);
        if (text.size() > m.text.size())
            m.SetDefined(1);
        m.Store(text);
        m.modified = 1;
    }
    Expect(error, [&] { m_strings[t]->CopyParts(*m_strings[s], position); });
}

void Machine::Insert(std::size_t t, std::size_t s)
{
    StringModel& m = m_models[t];
    const std::string source = m_models[s].text;
    const int position = DrawPosition(m);
    unsigned long error = 0;
    if (MayPlace(m, m_models[s], position, error) && !source.empty())
        m.Put(source, position);
    Expect(error, [&] { m_strings[t]->Insert(*m_strings[s], position); });
}

void Machine::Cut(std::size_t t, std::size_t)
{
    StringModel& m = m_models[t];
    const int position = DrawPosition(m);
    unsigned long error = 0;
    if (m.defined != 0 && position != m.Length()) {
        if (position < 0 || position > m.Length()) {
            error = 3;
        } else {
            m.text.resize(At(position));
            m.modified = 1;
        }
    }
    Expect(error, [&] { m_strings[t]->Cut(position); });
}

void Machine::Split(std::size_t t, std::size_t s)
{
    const std::size_t right = DrawOne();
    if (s == right)
        return;
    const StringModel whole = m_models[t];
    const int position = Draw(0, whole.Length() + 2);
    const auto length = std::min(At(position), whole.text.size());
    const std::string tail = whole.text.substr(length);
    m_strings[t]->Split(*m_strings[s], *m_strings[right], position);
    if (whole.defined == 0) {
        m_models[s].Clear();
        m_models[right].Clear();
        return;
    }
    m_models[s].Assign(whole.text.substr(0, length));
    if (tail.empty())
        m_models[right].Clear();
    else
        m_models[right].Assign(tail);
}

void Machine::Trim(std::size_t t, std::size_t)
{
    const std::array<int, 4> sides = {kLeft, kRight, ZelDtString::kiLeftRight, 7};
    const int side = sides[static_cast<std::size_t>(Draw(0, 3))];
    StringModel& m = m_models[t];
    const Size before = m.text.size();
    const Size first = m.text.find_first_not_of(' ');
    if (first == std::string::npos) {
        m.text.clear();
    } else {
        if (side != kLeft)
            m.text.erase(m.text.find_last_not_of(' ') + 1);
        if (side != kRight)
            m.text.erase(0, first);
    }
    m.Mark(m.text.size() != before);
    m_strings[t]->Trim(side);
}

void Machine::FillUp(std::size_t t, std::size_t)
{
    StringModel& m = m_models[t];
    const int length = m.Length() + Draw(-2, 6);
    const char fill = Draw(0, 9) == 0 && m_letterCount == std::size(kLetters) ? '\0' : '.';
    const int side = Draw(0, 1) == 0 ? kLeft : kRight;
    m_strings[t]->FillUp(fill, length, side);
    if (m.IsMissing() || length <= m.Length())
        return;
    const std::string filling(At(length - m.Length()), fill);
    m.Store(side == kLeft ? filling + m.text : m.text + filling);
    m.SetDefined(1);
    m.modified = 1;
}

void Machine::ChangeCase(std::size_t t, std::size_t)
{
    const bool up = Draw(0, 1) == 0;
    const std::string lower = "ab\xE4\xE9";
    const std::string upper = "AB\xC4\xC9";
    const std::string& from = up ? lower : upper;
    const std::string& to = up ? upper : lower;
    StringModel& m = m_models[t];
    for (char& c : m.text) {
        if (const Size found = from.find(c); found != std::string::npos)
            c = to[found];
        else if (to.find(c) != std::string::npos || c == '\xDF')
            continue;
        m.modified = 1;
    }
    if (up)
        m_strings[t]->ToUpper();
    else
        m_strings[t]->ToLower();
}

void Machine::SetAt(std::size_t t, std::size_t)
{
    StringModel& m = m_models[t];
    const int position = DrawPosition(m);
    const char c = Draw(0, 9) == 0 ? '\0' : DrawCharacter();
    const bool outside = position < 0 || position >= m.Length();
    const unsigned long error = outside ? 3 : c == '\0' ? 5 : 0;
    if (error == 0) {
        m.Mark(m.text[At(position)] != c);
        m.text[At(position)] = c;
    }
    Expect(error, [&] { m_strings[t]->SetAt(position, c); });
}

// Representations and reading

void Machine::Extern(std::size_t t, std::size_t s)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text = m_strings[s]->ConvToExtern(defined, version);
    EXPECT_EQ(defined, m_models[s].defined);
    EXPECT_EQ(BytesOf(text), m_models[s].text);
    m_strings[t]->SetFromExtern(&text, defined, version);
    if (defined == 0) {
        m_models[t].Clear();
    } else {
        m_models[t].SetDefined(1);
        m_models[t].Assign(std::string(m_models[s].text));
    }
}

void Machine::Archive(std::size_t t, std::size_t s)
{
    const std::string text = m_models[s].text;
    const int defined = m_models[s].defined;
    const Bytes bytes = Stored([&](CArchive& ar) { m_strings[s]->Serialize(ar); });
    EXPECT_EQ(Loaded(bytes, [&](CArchive& ar) { m_strings[t]->Serialize(ar); }), 0U);
    m_models[t].SetDefined(defined);
    if (defined == 0)
        m_models[t].Clear();
    else
        m_models[t].Assign(text);
}

void Machine::Compare(std::size_t t, std::size_t s)
{
    const StringModel& a = m_models[t];
    const StringModel& b = m_models[s];
    const bool withoutText = (a.IsNull() && b.text.empty()) || (a.text.empty() && b.IsNull());
    const bool undefined = a.defined == 0 && b.defined == 0;
    // Compare sees the texts up to their first NUL, == all of them.
    const bool alike = std::strcmp(a.text.c_str(), b.text.c_str()) == 0;
    const bool equal = a.text == b.text;
    EXPECT_EQ(m_strings[t]->Compare(*m_strings[s], 1), undefined || withoutText || alike ? 1 : 0);
    int result = -1;
    Expect(a.IsMissing() || b.IsMissing() ? 2 : 0,
           [&] { result = *m_strings[t] == *m_strings[s]; });
    EXPECT_EQ(result, a.IsMissing() || b.IsMissing() ? -1 : equal ? 1 : 0);
}

void Machine::Part(std::size_t t, std::size_t)
{
    const StringModel& m = m_models[t];
    const int position = DrawPosition(m);
    const int count = Draw(-1, m.Length() + 1);
    const bool inside = position >= 0 && count >= 0 && position + count <= m.Length();
    const unsigned long error = m.IsMissing() ? 2 : m.IsNull() || inside ? 0 : 3;
    std::string part;
    Expect(error, [&] { part = BytesOf(m_strings[t]->GetnValue(position, count)); });
    const bool read = error == 0 && !m.IsNull();
    EXPECT_EQ(part, read ? m.text.substr(At(position), At(count)) : std::string());
}

} // namespace

TEST(RandomSequences, AgreeWithTheModel)
{
    for (std::uint32_t seed = 1; seed <= 20 && !HasFailure(); ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        Machine(seed, false).Run(4000);
    }
}

TEST(RandomSequences, WithNulBytesAgreeWithTheModel)
{
    for (std::uint32_t seed = 101; seed <= 120 && !HasFailure(); ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        Machine(seed, true).Run(4000);
    }
}
