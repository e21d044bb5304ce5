#include "tools/zelconv/convert.h"

#include "tools/zelconv/progress.h"
#include "tools/zelconv/reader.h"
#include "tools/zelconv/rejects.h"
#include "tools/zelconv/sorter.h"
#include "tools/zelconv/writer.h"

#include <iostream>
#include <memory>
#include <optional>

namespace zelconv {

namespace {

/// Also tables: a row that is written must not be read again.
void RequireDifferentFiles(const Options& options)
{
    const bool fromFile = options.from != Form::Odbc;
    const bool toFile = options.to != Form::Odbc;
    if (fromFile && toFile && AreSameFile(options.input, options.output))
        throw Failure("IN and OUT are the same file");
    if (!fromFile && !toFile && options.input == options.output &&
        options.fromTable == options.table)
        throw Failure("the table that is read is the one that is written");
    if (options.rejects.empty())
        return;
    if ((fromFile && AreSameFile(options.rejects, options.input)) ||
        (toFile && AreSameFile(options.rejects, options.output)))
        throw Failure("--rejects names the file of IN or OUT");
}

/// Nothing for a database.
std::unique_ptr<InputFile> OpenInput(const Options& options)
{
    if (options.from == Form::Odbc)
        return nullptr;
    return std::make_unique<InputFile>(options.input);
}

/// `file` is null for a database.
std::unique_ptr<Reader> NewReader(InputFile* file, const Options& options)
{
    switch (options.from) {
    case Form::Odbc:
        return NewDatabaseReader(options);
    case Form::Extern:
        return NewExternReader(*file, options);
    case Form::Archive:
        return NewArchiveReader(*file, options);
    default:
        return NewCsvReader(*file, options);
    }
}

std::unique_ptr<Writer> NewWriter(const Columns& columns, const Options& options)
{
    switch (options.to) {
    case Form::Sql:
        return NewSqlWriter(columns, options);
    case Form::Extern:
        return NewExternWriter(columns, options);
    case Form::Archive:
        return NewArchiveWriter(columns);
    case Form::Display:
        return NewDisplayWriter(columns, options);
    default:
        return NewCsvWriter(columns, options);
    }
}

/// A database is reached at once, a file is only checked.
Target NewTarget(const Columns& columns, const Options& options)
{
    if (options.to == Form::Odbc)
        return NewDatabaseTarget(columns, options);
    return {NewWriter(columns, options), nullptr};
}

/// One conversion on its way.
class Conversion {
public:
    explicit Conversion(const Options& options)
        : m_input(OpenInput(options)), m_reader(NewReader(m_input.get(), options)),
          m_target(NewTarget(m_reader->GetColumns(), options)), m_row(m_reader->GetColumns()),
          m_progress(m_input.get())
    {
        if (!options.sort.empty()) {
            const std::size_t column = FindColumn(m_reader->GetColumns(), options.sort);
            m_sortColumn = static_cast<int>(column);
            m_sorter.emplace(*m_reader->GetColumns()[column].type);
        }
        if (m_target.output == nullptr)
            m_target.output = std::make_unique<OutputFile>(options.output);
        m_rejects.emplace(options.rejects);
    }

    Outcome Run()
    {
        m_target.writer->Begin(*m_target.output);
        std::string record;
        while (m_reader->Next()) {
            ConvertRow(record);
            m_progress.CountRow();
        }
        WriteSorted();
        m_target.writer->End(*m_target.output);
        Publish();
        Tell();
        return m_rejects->GetCount() == 0 ? Outcome::AllRows : Outcome::SomeRejected;
    }

private:
    void ConvertRow(std::string& record)
    {
        try {
            m_reader->Fill(m_row);
            FitToColumns(m_row, m_reader->GetColumns());
            m_target.writer->Encode(m_row, record);
        } catch (const RowFault& fault) {
            m_rejects->Add(*m_reader, m_row, fault);
            return;
        }
        if (m_sorter)
            m_sorter->Add(m_row[m_sortColumn], record);
        else
            m_target.writer->Put(record, *m_target.output);
    }

    void WriteSorted()
    {
        if (!m_sorter)
            return;
        m_progress.Say("sorting " + std::to_string(m_progress.GetRows()) + " rows");
        m_sorter->Sort();
        m_sorter->Drain(
            [&](const std::string& sorted) { m_target.writer->Put(sorted, *m_target.output); });
    }

    /// Output and rejects file can be seen only when both are complete.
    void Publish()
    {
        OutputFile* const rejects = m_rejects->GetFile();
        m_target.output->Finish();
        if (rejects != nullptr)
            rejects->Finish();
        m_target.output->Publish();
        if (rejects != nullptr)
            rejects->Publish();
    }

    void Tell()
    {
        const std::uint64_t rejected = m_rejects->GetCount();
        m_progress.Say("");
        if (m_progress.IsOnTerminal())
            std::cerr << m_progress.Summary() << '\n';
        if (rejected != 0)
            std::cerr << "zelconv: " << rejected << " of " << m_progress.GetRows()
                      << " rows rejected\n";
    }

    std::unique_ptr<InputFile> m_input; ///< null for a database
    std::unique_ptr<Reader> m_reader;
    Target m_target;
    Row m_row;
    Progress m_progress;
    std::optional<Sorter> m_sorter;
    int m_sortColumn = 0;
    std::optional<Rejects> m_rejects;
};

} // namespace

Outcome Convert(const Options& options)
{
    RequireDifferentFiles(options);
    return Conversion(options).Run();
}

} // namespace zelconv
