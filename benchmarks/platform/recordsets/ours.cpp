// Rows through record sets, from and to value objects.

#include "benchmarks/platform/recordsets/contenders.h"

#include <ZelDt.h>
#include <platform/recordsets/database.h>
#include <platform/runtime/ansi.h>

namespace zelbench {

namespace {

std::string Utf8(const char* text)
{
    std::string out;
    for (; *text != '\0'; ++text) {
        const char16_t character = zelrt::AnsiToUnicode(static_cast<unsigned char>(*text));
        if (character < 0x80) {
            out += static_cast<char>(character);
        } else {
            out += static_cast<char>(0xC0 | (character >> 6));
            out += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return out;
}

/// The names have characters below 100 hexadecimal only.
CString Ansi(const std::string& utf8)
{
    CString text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        const bool isTwoBytes = byte >= 0x80;
        const auto next = static_cast<unsigned char>(isTwoBytes ? utf8[i + 1] : 0);
        text += static_cast<char>(isTwoBytes ? ((byte & 0x03) << 6) | (next & 0x3F) : byte);
        i += isTwoBytes ? 1 : 0;
    }
    return text;
}

struct Values {
    ZelDtLong number;
    ZelDtShort quantity;
    ZelDtDecimal price;
    ZelDtDouble weight;
    ZelDtString name;
    ZelDtChar grade;
    ZelDtDateTime moment;
    ZelDtBool isExpress;
};

class Articles : public CRecordset {
public:
    explicit Articles(CDatabase& database) : CRecordset(&database) { m_nFields = 8; }

    void DoFieldExchange(CFieldExchange* pass) override
    {
        pass->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pass, "NUMBER", m_number);
        RFX_Int(pass, "QUANTITY", m_quantity);
        RFX_Text(pass, "PRICE", m_price, 40);
        RFX_Double(pass, "WEIGHT", m_weight);
        RFX_Text(pass, "NAME", m_name, 60);
        RFX_Text(pass, "GRADE", m_grade, 1);
        RFX_Date(pass, "MOMENT", m_moment);
        RFX_Bool(pass, "EXPRESS", m_isExpress);
    }

    void Take(Values& values)
    {
        values.number.SetFromRecordSet(*this, m_number);
        values.quantity.SetFromRecordSet(*this, m_quantity);
        values.price.SetFromRecordSet(*this, m_price);
        values.weight.SetFromRecordSet(*this, m_weight);
        values.name.SetFromRecordSet(*this, m_name);
        values.grade.SetFromRecordSet(*this, m_grade);
        values.moment.SetFromRecordSet(*this, m_moment);
        values.isExpress.SetFromRecordSet(*this, m_isExpress);
    }

    void Give(const Values& values)
    {
        values.number.ConvToRecordSet(*this, m_number);
        values.quantity.ConvToRecordSet(*this, m_quantity);
        values.price.ConvToRecordSet(*this, m_price);
        values.weight.ConvToRecordSet(*this, m_weight);
        values.name.ConvToRecordSet(*this, m_name);
        values.grade.ConvToRecordSet(*this, m_grade);
        values.moment.ConvToRecordSet(*this, m_moment);
        values.isExpress.ConvToRecordSet(*this, m_isExpress);
    }

private:
    long m_number = 0;
    int m_quantity = 0;
    CString m_price;
    double m_weight = 0;
    CString m_name;
    CString m_grade;
    TIMESTAMP_STRUCT m_moment{};
    BOOL m_isExpress = FALSE;
};

PlainRow PlainOf(const Values& values)
{
    PlainRow row;
    row.number = static_cast<int>(values.number.GetValue());
    row.quantity = values.quantity.GetValue();
    row.price = static_cast<const char*>(values.price.ConvToSQL());
    row.hasWeight = values.weight.IsDefined() != 0;
    row.weight = row.hasWeight ? values.weight.GetValue() : 0;
    row.name = Utf8(values.name.GetValue());
    row.grade = static_cast<char>(values.grade);
    const std::tm fields = values.moment.GetValue();
    row.year = fields.tm_year + 1900;
    row.month = fields.tm_mon + 1;
    row.day = fields.tm_mday;
    row.hour = fields.tm_hour;
    row.minute = fields.tm_min;
    row.second = fields.tm_sec;
    row.isExpress = static_cast<int>(values.isExpress) != 0;
    return row;
}

void SetValues(Values& values, const PlainRow& row)
{
    values.number = row.number;
    values.quantity = static_cast<short>(row.quantity);
    values.price = ZelDtDecimal(row.price.c_str());
    if (row.hasWeight)
        values.weight = row.weight;
    else
        values.weight.Clear();
    values.name = Ansi(row.name);
    values.grade = row.grade;
    values.moment = ZelDtDateTime(row.day, row.month, row.year, row.hour, row.minute, row.second);
    values.isExpress = row.isExpress ? TRUE : FALSE;
}

int Read(const std::string& connect, Fingerprint* fingerprint)
{
    CDatabase database;
    database.OpenEx(connect.c_str(), CDatabase::noOdbcDialog | CDatabase::openReadOnly);
    Articles articles(database);
    articles.Open(CRecordset::forwardOnly, "READING", CRecordset::readOnly);
    Values values;
    int rows = 0;
    for (; !articles.IsEOF(); articles.MoveNext()) {
        articles.Take(values);
        ++rows;
        if (fingerprint != nullptr)
            fingerprint->Add(PlainOf(values));
    }
    return rows;
}

void Write(const std::string& connect, int rows)
{
    CDatabase database;
    database.OpenEx(connect.c_str(), CDatabase::noOdbcDialog);
    database.BeginTrans();
    Articles articles(database);
    articles.m_strFilter = "1=0";
    articles.Open(CRecordset::snapshot, "WRITING", CRecordset::appendOnly);
    Values values;
    for (int number = 1; number <= rows; ++number) {
        SetValues(values, MakeRow(number));
        articles.AddNew();
        articles.Give(values);
        articles.Update();
    }
    articles.Close();
    database.CommitTrans();
}

} // namespace

const Contender kOurs = {"ours", &Read, &Write};

} // namespace zelbench
