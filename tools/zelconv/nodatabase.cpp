/// Stands for databases where the library that reaches them was not built.

#include "tools/zelconv/reader.h"
#include "tools/zelconv/writer.h"

namespace zelconv {

namespace {

[[noreturn]] void Refuse()
{
    throw Failure("odbc: this zelconv was built without databases");
}

} // namespace

std::unique_ptr<Reader> NewDatabaseReader(const Options&)
{
    Refuse();
}

Target NewDatabaseTarget(const Columns&, const Options&)
{
    Refuse();
}

} // namespace zelconv
