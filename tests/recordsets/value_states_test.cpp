/// Values of every class in every state, to the columns of a table and back.

#include "tests/recordsets/value_table.h"

namespace {

using namespace zeltest;

template <typename Value>
class ValueStates : public ValueTable<Value> {};

TYPED_TEST_SUITE(ValueStates, ValueClasses, ValueClassNames);

/// Three texts: that of a new value and two others.
template <typename Value>
std::vector<std::string> FewTexts()
{
    const std::vector<std::string> all = ColumnOf<Value>::Samples();
    return {ColumnOf<Value>::kEmpty, all[1], all.back()};
}

/// What the row of a value holds: undefined values have none, whatever they store.
std::optional<std::string> StoredText(const Seen& value)
{
    if (!value.state.defined)
        return std::nullopt;
    return value.text;
}

TYPED_TEST(ValueStates, EverySampleIsReadAsItWasWritten)
{
    this->MakeValueTable();
    ValueRows expected;
    {
        ValueSet<TypeParam> set(this->m_database);
        set.Open();
        for (const std::string& text : ColumnOf<TypeParam>::Samples()) {
            expected.push_back({static_cast<long>(expected.size() + 1), text});
            this->AddRow(set, expected.back().id, ColumnOf<TypeParam>::Make(text));
        }
    }
    EXPECT_EQ(this->CountRows(), static_cast<long>(expected.size()));
    EXPECT_EQ(this->CountWhere("WERT IS NULL"), 0);
    EXPECT_EQ(this->ReadRows(), expected);
    for (const ValueRow& row : expected) {
        const Seen before{{ZelDtWmMissing, 0, 0}, ColumnOf<TypeParam>::kEmpty};
        EXPECT_EQ(this->ReadRow(row.id, before), AfterText(before, *row.text));
    }
}

TYPED_TEST(ValueStates, UndefinedValuesAreWrittenAsNull)
{
    this->MakeValueTable();
    const std::vector<Seen> values = InEveryState(FewTexts<TypeParam>());
    ValueRows expected;
    ValueSet<TypeParam> set(this->m_database);
    set.Open();
    for (const Seen& seen : values) {
        SCOPED_TRACE(seen);
        const InState<TypeParam> value(seen);
        expected.push_back({static_cast<long>(expected.size() + 1), StoredText(seen)});
        set.BeginRow(expected.back().id);
        value.it.ConvToRecordSet(set, set.m_value);
        EXPECT_EQ(Look(value.it), seen);
        EXPECT_EQ(set.IsFieldNull(&set.m_value), !seen.state.defined);
        EXPECT_TRUE(set.Update());
    }
    set.Close();
    EXPECT_EQ(this->ReadRows(), expected);
    EXPECT_EQ(this->CountRows(), 36);
    EXPECT_EQ(this->CountWhere("WERT IS NULL"), 18);
}

TYPED_TEST(ValueStates, ReadingTakesOverValueDefinednessAndModification)
{
    this->MakeValueTable();
    const std::vector<std::string> texts = FewTexts<TypeParam>();
    this->WriteRow(1, TypeParam(ZelDtWmNull));
    for (std::size_t i = 0; i < texts.size(); ++i)
        this->WriteRow(static_cast<long>(i) + 2, ColumnOf<TypeParam>::Make(texts[i]));
    ValueSet<TypeParam> set(this->m_database);
    std::size_t count = 0;
    for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count) {
        const ValueRow row = set.Current();
        SCOPED_TRACE(row);
        for (const Seen& before : InEveryState(texts)) {
            InState<TypeParam> value(before);
            value.it.SetFromRecordSet(set, set.m_value);
            EXPECT_EQ(Look(value.it),
                      row.text ? AfterText(before, *row.text) : AfterNull<TypeParam>(before))
                << before;
        }
        // Reading changes no field.
        EXPECT_EQ(set.Current(), row);
        EXPECT_FALSE(set.IsFieldDirty(nullptr));
    }
    EXPECT_EQ(count, 4U);
}

TYPED_TEST(ValueStates, AModeThatIsAlwaysDefinedReadsNullAsTheNewValue)
{
    this->MakeValueTable();
    this->WriteRow(1, TypeParam(ZelDtWmMissing));
    const State always{ZelDtWmAlwaysDefined, 1, 0};
    const std::string text = ColumnOf<TypeParam>::Samples()[1];
    EXPECT_EQ(this->ReadRow(1, {always, text}),
              (Seen{{ZelDtWmAlwaysDefined, 1, 1}, ColumnOf<TypeParam>::kEmpty}));
    EXPECT_EQ(this->ReadRow(1, {always, ColumnOf<TypeParam>::kEmpty}),
              (Seen{always, ColumnOf<TypeParam>::kEmpty}));
    // And so it is written: not as NULL.
    this->WriteRow(2, TypeParam(ZelDtWmAlwaysDefined));
    EXPECT_EQ(this->ReadRows(),
              ValueRows({{1, std::nullopt}, {2, std::string(ColumnOf<TypeParam>::kEmpty)}}));
}

TYPED_TEST(ValueStates, ANullValueComesBackAsNullInEachMode)
{
    this->MakeValueTable();
    this->WriteRow(1, TypeParam(ZelDtWmNull));
    this->WriteRow(2, TypeParam(ZelDtWmMissing));
    for (const long id : {1L, 2L}) {
        for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
            const std::string text = ColumnOf<TypeParam>::Samples()[1];
            EXPECT_EQ(this->ReadRow(id, {{mode, 1, 0}, text}),
                      (Seen{{mode, 0, 1}, ColumnOf<TypeParam>::kEmpty}));
        }
    }
}

TYPED_TEST(ValueStates, RowsAreChangedFromEachStateToEach)
{
    this->MakeValueTable();
    const std::vector<Seen> values = InEveryState(FewTexts<TypeParam>());
    // Every defined text and NULL, changed to every state with every text.
    std::vector<Seen> starts;
    for (const Seen& seen : values)
        if (seen.state == State{ZelDtWmMissing, 1, 0})
            starts.push_back(seen);
    starts.push_back({{ZelDtWmNull, 0, 0}, ColumnOf<TypeParam>::kEmpty});
    ValueSet<TypeParam> set(this->m_database);
    set.Open();
    long id = 0;
    for (const Seen& start : starts)
        for (std::size_t i = 0; i < values.size(); ++i)
            this->AddRow(set, ++id, InState<TypeParam>(start).it);
    set.Requery();
    ValueRows expected;
    for (const Seen& start : starts) {
        for (const Seen& seen : values) {
            ASSERT_FALSE(set.IsEOF());
            SCOPED_TRACE(::testing::Message() << start << " to " << seen);
            const InState<TypeParam> value(seen);
            const ValueRow before = set.Current();
            const std::string memberBefore = ContentOf(set.m_value);
            set.Edit();
            value.it.ConvToRecordSet(set, set.m_value);
            expected.push_back({before.id, StoredText(seen)});
            // Nothing is written where neither the member nor its null mark is another one.
            const bool isOther = before.text.has_value() != (seen.state.defined != 0) ||
                                 ContentOf(set.m_value) != memberBefore;
            EXPECT_EQ(set.Update(), isOther);
            EXPECT_EQ(set.Current(), expected.back());
            EXPECT_EQ(Look(value.it), seen);
            set.MoveNext();
        }
    }
    EXPECT_TRUE(set.IsEOF());
    EXPECT_EQ(this->ReadRows(), expected);
    EXPECT_EQ(this->CountRows(), 4 * 36);
}

} // namespace
