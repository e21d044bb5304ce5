#include "tools/zelconv/externtext.h"
#include "tools/zelconv/writer.h"

namespace zelconv {

namespace {

class ExternWriter final : public Writer {
public:
    ExternWriter(const Columns& columns, const Options& options)
        : m_columns(columns), m_charset(options.outputCharset)
    {}

    void Begin(Output& output) override
    {
        std::string line;
        if (FromAnsi(m_charset, ExternHeader(m_columns), line).status != CharsetResult::Status::Ok)
            throw Failure("a column name has a character that the charset of the output lacks");
        output.Write(line + "\n");
    }

    void Encode(const Row& row, std::string& record) override
    {
        record.clear();
        for (int column = 0; column < row.GetCount(); ++column) {
            if (column != 0)
                record += kExternSeparator;
            m_cell.clear();
            AppendExternCell(row[column], *m_columns[static_cast<std::size_t>(column)].type, column,
                             m_cell);
            EncodeCell(m_charset, m_cell, column, record);
        }
        record += '\n';
    }

    void Put(const std::string& record, Output& output) override
    {
        Writer::Put(record, output);
        ++m_rows;
    }

    void End(Output& output) override
    {
        output.Write(std::string(kExternEnd) + kExternSeparator + std::to_string(m_rows) + "\n");
    }

private:
    const Columns& m_columns;
    Charset m_charset;
    std::string m_cell;
    std::uint64_t m_rows = 0;
};

} // namespace

std::unique_ptr<Writer> NewExternWriter(const Columns& columns, const Options& options)
{
    return std::make_unique<ExternWriter>(columns, options);
}

} // namespace zelconv
