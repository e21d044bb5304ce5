// A dialog for one order: shows an order of a CSV file in German display, checks what is typed, and
// writes the order as an SQL statement and as an archive.
//
//     auftragsmaske auftraege.csv 100004 --sql neu.sql --archiv neu.arc
//     auftragsmaske --tippe eingaben.txt auftraege.csv 100004 --sql neu.sql --archiv neu.arc
//     auftragsmaske --lies neu.arc
//
// It shows the exchange of data between the controls of a dialog and a value of every class, where
// rejected texts are told to the user, required fields, a box of three states, values that know
// whether they were modified, and objects in archives. The dialog itself is on Windows only; with
// --tippe a file types into it, on every system, and with --fenster too it can be watched.
//
// It ends with status 0 when the order was saved, 1 when it was not, 2 when something was wrong
// with the call or the files.

#include "ablage.h"
#include "fenster.h"
#include "texte.h"
#include "tippen.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace auftraege;

constexpr const char* kUsage =
    "auftragsmaske [--tippe EINGABEN [--fenster]] AUFTRAEGE.CSV NUMMER --sql DATEI --archiv DATEI"
    " | --lies ARCHIV\n";

struct Options {
    std::string orders;
    std::string number;
    std::string sql;
    std::string archive;
    std::string steps;
    std::string archiveToRead;
    bool window = false;
};

/// False if the call makes no sense.
bool Parse(const std::vector<std::string>& arguments, Options& options)
{
    const struct {
        const char* name;
        std::string* value;
    } named[] = {{"--sql", &options.sql},
                 {"--archiv", &options.archive},
                 {"--tippe", &options.steps},
                 {"--lies", &options.archiveToRead}};
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string* value = nullptr;
        for (const auto& option : named) {
            if (arguments[i] == option.name)
                value = option.value;
        }
        if (value != nullptr && (++i == arguments.size() || arguments[i].empty()))
            return false;
        if (value != nullptr)
            *value = arguments[i];
        else if (arguments[i] == "--fenster")
            options.window = true;
        else
            rest.push_back(arguments[i]);
    }
    if (!options.archiveToRead.empty())
        return arguments.size() == 2;
    if (rest.size() != 2 || options.sql.empty() || options.archive.empty() ||
        options.sql == options.archive || (options.window && options.steps.empty()))
        return false;
    options.orders = rest[0];
    options.number = rest[1];
    options.window = options.window || options.steps.empty();
    return true;
}

/// Tells whoever reads the output too.
class TalkingMask final : public OrderMask {
public:
    using OrderMask::OrderMask;

    const std::string& GetMessage() const { return m_message; }

private:
    void Tell(const std::string& message) override
    {
        OrderMask::Tell(message);
        std::printf("Meldung: %s\n", message.c_str());
        m_message = message;
    }

    std::string m_message;
};

/// Names of the fields whose values were changed since they were read.
std::string ModifiedFields(const CAuftrag& order)
{
    std::string names;
    for (const Field& field : Fields()) {
        if (field.constant(order).IsModified())
            names += std::string(names.empty() ? "" : ", ") + field.name;
    }
    return names.empty() ? "nichts" : names;
}

/// Prints how it ended; the status of the program.
int Tell(const TalkingMask& mask, const CAuftrag& order, const Options& options)
{
    switch (mask.GetState()) {
    case OrderMask::State::Saved:
        std::printf("geändert: %s\ngespeichert: %s, %s\n", ModifiedFields(order).c_str(),
                    options.sql.c_str(), options.archive.c_str());
        return 0;
    case OrderMask::State::Cancelled:
        std::printf("abgebrochen\n");
        return 1;
    case OrderMask::State::Unsaved:
        throw std::runtime_error(mask.GetMessage());
    default: // refused, and nobody there to mend it
        return 1;
    }
}

int RunMask(const Options& options)
{
    CAuftrag order;
    ZelDtLong number(ZelDtWmMissing);
    try {
        Read(options.number, "", number);
    } catch (const Refusal& refusal) {
        throw std::runtime_error(options.number + ": " + refusal.reason);
    }
    order.ReadFrom(options.orders, number);
    std::vector<Step> steps;
    if (!options.steps.empty())
        steps = ReadSteps(options.steps);

    TalkingMask mask(order, [&] { SaveOrder(order, options.sql, options.archive); });
    mask.Create();
    if (options.window)
        Show(mask);
    if (!options.steps.empty())
        Follow(steps, mask);
    if (options.window)
        Run(mask);
    return Tell(mask, order, options);
}

void PrintArchive(const std::string& name)
{
    constexpr std::size_t width = 15;
    const std::unique_ptr<CAuftrag> order = LoadOrder(name);
    for (const Field& field : Fields()) {
        const ZelDtBasis& value = field.constant(*order);
        const std::string shown = value.IsDefined() ? Utf8(value.ConvToOFL(nullptr)) : "-";
        std::printf("%s%s\n", Padded(field.label, width).c_str(), shown.c_str());
    }
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!Parse({argv + 1, argv + argc}, options)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    int status = 0;
    const int failed = RunProgram("auftragsmaske", [&] {
        if (options.archiveToRead.empty())
            status = RunMask(options);
        else
            PrintArchive(options.archiveToRead);
    });
    return failed != 0 ? failed : status;
}
