#include "tools/zelconv/options.h"

#include "tools/zelconv/column.h"
#include "tools/zelconv/fault.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace zelconv {

namespace {

template <typename Value>
struct Choice {
    const char* name;
    Value value;
};

constexpr std::array<Choice<Form>, 3> kSources = {{
    {"csv", Form::Csv},
    {"extern", Form::Extern},
    {"archive", Form::Archive},
}};

constexpr std::array<Choice<Form>, 5> kTargets = {{
    {"csv", Form::Csv},
    {"sql", Form::Sql},
    {"extern", Form::Extern},
    {"archive", Form::Archive},
    {"display", Form::Display},
}};

constexpr std::array<Choice<Charset>, 4> kCharsets = {{
    {"utf8", Charset::Utf8},
    {"1252", Charset::Ansi1252},
    {"850", Charset::Oem850},
    {"437", Charset::Oem437},
}};

constexpr std::array<Choice<ZelDtWorkingMode>, 2> kModes = {{
    {"missing", ZelDtWmMissing},
    {"null", ZelDtWmNull},
}};

constexpr std::array<Choice<bool>, 2> kYesNo = {{
    {"yes", true},
    {"no", false},
}};

constexpr std::array<Choice<bool>, 2> kNumbers = {{
    {"german", false},
    {"plain", true},
}};

constexpr std::string_view kDatabasePrefix = "odbc:";

constexpr const char* kDescription =
    "Converts typed rows between the representations of the value classes.";

constexpr const char* kFooter =
    R"(
A row that cannot be converted goes to the rejects file unchanged, behind a line that tells why;
the other rows go on. An output file is complete or absent.

Exit status: 0 all rows converted, 1 some rejected, 2 unusable call or file.

Examples:
  zelconv --columns "Nr:long,Name:string" --from csv --to sql --table Kunden \
          --rejects rejects.txt kunden.csv kunden.sql
  zelconv --columns "Nr:long,Name:string" --from csv --to display --sort Name kunden.csv -
  zelconv --columns "Nr:long,Name:string" --from csv --charset 850 --output-charset utf8 \
          --to archive dos.csv kunden.zca
  zelconv --from archive --to csv --separator tab kunden.zca -
  zelconv --columns "Nr:long,Name:string" --from csv --to odbc:kunden.db --table Kunden \
          --create yes kunden.csv
  zelconv --columns "Nr:long,Name:string" --from "odbc:DSN=Laden;UID=kasse" --table Kunden \
          --to csv kunden.csv

The forms of the files are described in docs/zelconv.md.)";

/// The texts of the command line before they are looked at closer.
struct Arguments {
    std::array<std::string, 2> files; ///< IN and OUT, or the one of them that is no database
    std::size_t fileCount = 0;        ///< of those that were given
    std::string create = "no";
    std::string from;
    std::string to;
    std::string charset = "utf8";
    std::string outputCharset;
    std::string empty;
    std::string separator = ";";
    std::string header = "yes";
    std::string numbers = "german";
};

template <typename Choices>
CLI::IsMember OneOf(const Choices& choices)
{
    std::vector<std::string> names;
    names.reserve(choices.size());
    for (const auto& choice : choices)
        names.emplace_back(choice.name);
    return CLI::IsMember(names);
}

/// A form that has a name, or the one that is all databases.
template <typename Choices>
CLI::Validator FormOf(const Choices& choices)
{
    const CLI::Validator database(
        [](std::string& text) {
            return text.starts_with(kDatabasePrefix) ? std::string() : text + " is no odbc:CONNECT";
        },
        "odbc:CONNECT");
    return OneOf(choices) | database;
}

/// The value behind a name that was checked before.
template <typename Value, std::size_t Count>
Value ValueOf(const std::array<Choice<Value>, Count>& choices, const std::string& name)
{
    for (const Choice<Value>& choice : choices) {
        if (name == choice.name)
            return choice.value;
    }
    throw Failure("unknown choice '" + name + "'");
}

void Describe(CLI::App& app, Arguments& arguments, Options& options)
{
    app.footer("Column types: " + TypeNames() + ".\n" + kFooter);
    app.set_version_flag("--version", "zelconv 1.0");
    app.add_option("--columns", options.columns,
                   "names and types, NAME:TYPE,...; needed for csv and odbc, else checked against "
                   "the file");
    app.add_option("--from", arguments.from, "form of the input")
        ->required()
        ->check(FormOf(kSources));
    app.add_option("--to", arguments.to, "form of the output")->required()->check(FormOf(kTargets));
    app.add_option("--table", options.table, "table of the database or of the INSERT statements");
    app.add_option("--from-table", options.fromTable, "table that is read where it is another one");
    app.add_option("--create", arguments.create, "whether to make a missing table (no)")
        ->check(OneOf(kYesNo));
    app.add_option("--charset", arguments.charset, "charset of input and output (utf8)")
        ->check(OneOf(kCharsets));
    app.add_option("--output-charset", arguments.outputCharset,
                   "charset of the output where it differs")
        ->check(OneOf(kCharsets));
    app.add_option("--sort", options.sort, "sort by this column, texts in house order");
    app.add_option("--rejects", options.rejects, "file for the rows that cannot be converted");
    app.add_option("--empty", arguments.empty, "what an empty cell is (missing)")
        ->check(OneOf(kModes));
    app.add_option("--separator", arguments.separator,
                   "separates the cells of csv: one character or 'tab' (;)");
    app.add_option("--header", arguments.header, "whether csv begins with the names (yes)")
        ->check(OneOf(kYesNo));
    app.add_option("--numbers", arguments.numbers,
                   "numbers of csv: german (1.234,50) or plain (1234.50) (german)")
        ->check(OneOf(kNumbers));
    app.add_option("IN", arguments.files[0], "input file, - for standard input; none for odbc");
    app.add_option("OUT", arguments.files[1], "output file, - for standard output; none for odbc");
}

char ParseSeparator(const std::string& text)
{
    if (text == "tab")
        return '\t';
    const bool usable = text.size() == 1 && (text[0] == '\t' || (text[0] >= ' ' && text[0] < 0x7F));
    if (!usable || text[0] == '"')
        throw Failure("--separator: give one plain character other than the quote, or 'tab'");
    return text[0];
}

/// What follows "odbc:"; nothing for other forms.
std::optional<std::string> ConnectionOf(const std::string& form)
{
    if (!form.starts_with(kDatabasePrefix))
        return std::nullopt;
    if (form.size() == kDatabasePrefix.size())
        throw Failure("odbc: a connection string or the file of a SQLite database must follow");
    return form.substr(kDatabasePrefix.size());
}

/// Forms, and what is read and written: a database takes the place of its file.
void CompleteEnds(const Arguments& arguments, Options& options)
{
    const std::optional<std::string> source = ConnectionOf(arguments.from);
    const std::optional<std::string> target = ConnectionOf(arguments.to);
    options.from = source ? Form::Odbc : ValueOf(kSources, arguments.from);
    options.to = target ? Form::Odbc : ValueOf(kTargets, arguments.to);
    const std::size_t wanted = (source ? 0U : 1U) + (target ? 0U : 1U);
    if (arguments.fileCount < wanted)
        throw Failure(std::string(arguments.fileCount == 0 && !source ? "IN" : "OUT") +
                      " is required (zelconv --help tells more)");
    if (arguments.fileCount > wanted)
        throw Failure("a database takes the place of IN or OUT: '" + arguments.files[wanted] +
                      "' is one file too many");
    options.input = source ? *source : arguments.files[0];
    options.output = target ? *target : arguments.files[source ? 0 : 1];
}

/// Which tables are meant.
void CompleteTables(const Arguments& arguments, Options& options)
{
    options.create = ValueOf(kYesNo, arguments.create);
    if (options.fromTable.empty())
        options.fromTable = options.table;
    if (options.from == Form::Odbc && options.fromTable.empty())
        throw Failure("--table is required for --from odbc");
    if (options.to == Form::Odbc && options.table.empty())
        throw Failure("--table is required for --to odbc");
    if (options.to == Form::Sql && options.table.empty())
        throw Failure("--table is required for --to sql");
}

void Complete(const Arguments& arguments, Options& options)
{
    CompleteEnds(arguments, options);
    CompleteTables(arguments, options);
    options.inputCharset = ValueOf(kCharsets, arguments.charset);
    options.outputCharset = arguments.outputCharset.empty()
                                ? options.inputCharset
                                : ValueOf(kCharsets, arguments.outputCharset);
    if (!arguments.empty.empty())
        options.empty = ValueOf(kModes, arguments.empty);
    options.separator = ParseSeparator(arguments.separator);
    options.header = ValueOf(kYesNo, arguments.header);
    options.plainNumbers = ValueOf(kNumbers, arguments.numbers);

    if (options.from == Form::Csv && options.columns.empty())
        throw Failure("--columns is required for --from csv");
    if (options.from == Form::Odbc && options.columns.empty())
        throw Failure("--columns is required for --from odbc");
    if (options.rejects == kStandardStream)
        throw Failure("--rejects needs the name of a file");
}

} // namespace

std::optional<Options> ParseOptions(int argc, char** argv)
{
    Options options;
    Arguments arguments;
    CLI::App app(kDescription, "zelconv");
    Describe(app, arguments, options);
    try {
        app.parse(argc, argv);
        arguments.fileCount = app.count("IN") + app.count("OUT");
    } catch (const CLI::Success& request) {
        app.exit(request);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw Failure(std::string(error.what()) + " (zelconv --help tells more)");
    }
    Complete(arguments, options);
    return options;
}

} // namespace zelconv
