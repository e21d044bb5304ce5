#include "tools/zelconv/charset.h"
#include "tools/zelconv/databasetypes.h"
#include "tools/zelconv/outputtable.h"
#include "tools/zelconv/writer.h"

#include <utility>
#include <vector>

namespace zelconv {

namespace {

/// A column of the rows with the one of the table that takes it.
struct Place {
    const DatabaseType* type;
    TableColumn column;
};

[[noreturn]] void RefuseColumn(const TableName& table, const Column& column,
                               const std::string& reason)
{
    throw Failure(table.Given() + ": column '" + Utf8FromAnsi(column.name) + "' " + reason);
}

std::vector<Place> FindPlaces(OutputTable& table, const Columns& columns)
{
    const std::vector<TableColumn>& found = table.GetColumns();
    std::vector<Place> places;
    for (const Column& column : columns) {
        const DatabaseType& type = DatabaseTypeOf(*column.type);
        const TableColumn* const place = FindTableColumn(found, column.name);
        if (place == nullptr)
            RefuseColumn(table.GetName(), column, "is not in the table");
        if (!type.Fits(place->content, table.GetDialect()))
            RefuseColumn(table.GetName(), column,
                         "is " + Utf8FromAnsi(place->typeName) + " in the table, where a " +
                             column.TypeText() + " would change");
        places.push_back({&type, *place});
    }
    return places;
}

/// Makes rows for the sink of the table.
class DatabaseWriter final : public Writer {
public:
    DatabaseWriter(std::vector<Place> places, const RowSink& sink)
        : m_places(std::move(places)), m_sink(sink)
    {}

    void Begin(Output&) override {}
    void Encode(const Row& row, std::string& record) override;

private:
    void AppendCell(const ZelDtBasis& value, int column, std::string& record) const;

    std::vector<Place> m_places;
    const RowSink& m_sink;
};

void DatabaseWriter::Encode(const Row& row, std::string& record)
{
    record.clear();
    for (int column = 0; column < row.GetCount(); ++column)
        AppendCell(row[column], column, record);
    m_sink.EndRow(record);
}

void DatabaseWriter::AppendCell(const ZelDtBasis& value, int column, std::string& record) const
{
    if (!value.IsDefined()) {
        m_sink.AddNull(record);
        return;
    }
    const Place& place = m_places[static_cast<std::size_t>(column)];
    Refuse(
        ForColumn(column, [&] { return place.type->append(value, place.column, m_sink, record); }),
        column);
}

} // namespace

Target NewDatabaseTarget(const Columns& columns, const Options& options)
{
    auto table = std::make_unique<OutputTable>(options, columns);
    std::vector<Place> places = FindPlaces(*table, columns);
    Target target;
    target.writer = std::make_unique<DatabaseWriter>(std::move(places), table->OpenSink(columns));
    target.output = std::move(table);
    return target;
}

} // namespace zelconv
