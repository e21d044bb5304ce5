// zel_recordset_benchmarks: one job by one contender; benchmarks/recordsets.py runs it again and
// again. What to connect with stands in ZEL_TEST_CONNECT.
//
//     zel_recordset_benchmarks contenders
//     zel_recordset_benchmarks fill ROWS              makes the tables and fills READING
//     zel_recordset_benchmarks empty                  makes WRITING anew
//     zel_recordset_benchmarks read CONTENDER         prints rows and seconds
//     zel_recordset_benchmarks write CONTENDER ROWS   prints rows and seconds
//     zel_recordset_benchmarks show CONTENDER         prints rows and fingerprint of READING
//     zel_recordset_benchmarks compare ROWS           fails unless WRITING is as READING was filled

#include "benchmarks/platform/recordsets/contenders.h"

#include <ZelDt.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using zelbench::Contender;

const std::vector<const Contender*>& Contenders()
{
    static const std::vector<const Contender*> contenders = {
        &zelbench::kOurs,
        &zelbench::kBareOdbc,
#ifdef ZELBENCH_HAVE_SOCI
        &zelbench::kSoci,
#endif
    };
    return contenders;
}

const Contender& Find(const std::string& name)
{
    for (const Contender* contender : Contenders()) {
        if (name == contender->name)
            return *contender;
    }
    throw std::runtime_error("no contender " + name);
}

void MakeTable(const std::string& connect, const std::string& table)
{
    const bool isSqlite = zelbench::IsSqlite(connect);
    zelbench::Execute(connect, "DROP TABLE IF EXISTS " + table);
    zelbench::Execute(connect, "CREATE TABLE " + table +
                                   " (NUMBER INTEGER,QUANTITY SMALLINT,PRICE " +
                                   (isSqlite ? "VARCHAR(20)" : "DECIMAL(12,2)") +
                                   ",WEIGHT DOUBLE,NAME VARCHAR(60),GRADE VARCHAR(1),"
                                   "MOMENT DATETIME,EXPRESS SMALLINT)");
}

void Fill(const std::string& connect, int rows)
{
    MakeTable(connect, "READING");
    MakeTable(connect, "WRITING");
    zelbench::kBareOdbc.write(connect, rows);
    zelbench::Execute(connect, "INSERT INTO READING SELECT * FROM WRITING");
}

/// Whether the rows that were written are those that were meant.
void Compare(const std::string& connect, int rows)
{
    zelbench::Fingerprint expected;
    for (int number = 1; number <= rows; ++number)
        expected.Add(zelbench::MakeRow(number));
    zelbench::Execute(connect, "DROP TABLE READING");
    zelbench::Execute(connect, "ALTER TABLE WRITING RENAME TO READING");
    zelbench::Fingerprint found;
    const int count = zelbench::kBareOdbc.read(connect, &found);
    MakeTable(connect, "WRITING");
    if (count != rows || found.Get() != expected.Get())
        throw std::runtime_error("the rows that were written are not those that were meant");
}

template <typename Work>
void Time(Work work)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    const std::clock_t processor = std::clock();
    const int rows = work();
    const double used = static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC;
    const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    std::printf("%d %.4f %.4f\n", rows, seconds, used);
}

int Run(const std::vector<std::string>& words, const std::string& connect)
{
    const std::string job = words.empty() ? std::string() : words[0];
    if (job == "contenders") {
        for (const Contender* contender : Contenders())
            std::printf("%s\n", contender->name);
    } else if (job == "empty") {
        MakeTable(connect, "WRITING");
    } else if (job == "fill" && words.size() == 2) {
        Fill(connect, std::stoi(words[1]));
    } else if (job == "compare" && words.size() == 2) {
        Compare(connect, std::stoi(words[1]));
    } else if (job == "read" && words.size() == 2) {
        Time([&] { return Find(words[1]).read(connect, nullptr); });
    } else if (job == "show" && words.size() == 2) {
        zelbench::Fingerprint fingerprint;
        const int rows = Find(words[1]).read(connect, &fingerprint);
        std::printf("%d %016llx\n", rows, static_cast<unsigned long long>(fingerprint.Get()));
    } else if (job == "write" && words.size() == 3) {
        const int rows = std::stoi(words[2]);
        Time([&] {
            Find(words[1]).write(connect, rows);
            return rows;
        });
    } else {
        throw std::runtime_error("unknown job");
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const char* const connect = std::getenv("ZEL_TEST_CONNECT");
    try {
        return Run({argv + 1, argv + argc}, connect != nullptr ? connect : "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zel_recordset_benchmarks: %s\n", error.what());
    } catch (CException* error) {
        char text[512] = "";
        error->GetErrorMessage(text, sizeof text);
        error->Delete();
        std::fprintf(stderr, "zel_recordset_benchmarks: %s\n", text);
    } catch (ZelDtExcep* error) {
        std::fprintf(stderr, "zel_recordset_benchmarks: error %lu\n", error->GetErrorNo());
        delete error;
    }
    return 1;
}
