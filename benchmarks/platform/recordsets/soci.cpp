// Rows through SOCI with its ODBC backend, from and to plain members.

#include "benchmarks/platform/recordsets/contenders.h"

#include <ctime>
#include <soci/soci.h>

namespace zelbench {

namespace {

constexpr int kBaseYear = 1900;

std::tm MomentOf(const PlainRow& row)
{
    std::tm moment{};
    moment.tm_year = row.year - kBaseYear;
    moment.tm_mon = row.month - 1;
    moment.tm_mday = row.day;
    moment.tm_hour = row.hour;
    moment.tm_min = row.minute;
    moment.tm_sec = row.second;
    return moment;
}

void SetMoment(PlainRow& row, const std::tm& moment)
{
    row.year = moment.tm_year + kBaseYear;
    row.month = moment.tm_mon + 1;
    row.day = moment.tm_mday;
    row.hour = moment.tm_hour;
    row.minute = moment.tm_min;
    row.second = moment.tm_sec;
}

int Read(const std::string& connect, Fingerprint* fingerprint)
{
    soci::session session("odbc", connect);
    PlainRow row;
    std::string grade;
    std::tm moment{};
    int isExpress = 0;
    soci::indicator hasWeight = soci::i_ok;
    soci::statement statement =
        (session.prepare
             << "SELECT NUMBER,QUANTITY,PRICE,WEIGHT,NAME,GRADE,MOMENT,EXPRESS FROM READING",
         soci::into(row.number), soci::into(row.quantity), soci::into(row.price),
         soci::into(row.weight, hasWeight), soci::into(row.name), soci::into(grade),
         soci::into(moment), soci::into(isExpress));
    statement.execute();
    int rows = 0;
    while (statement.fetch()) {
        ++rows;
        if (fingerprint == nullptr)
            continue;
        row.grade = grade[0];
        row.hasWeight = hasWeight == soci::i_ok;
        row.weight = row.hasWeight ? row.weight : 0;
        row.isExpress = isExpress != 0;
        SetMoment(row, moment);
        fingerprint->Add(row);
    }
    return rows;
}

void Write(const std::string& connect, int rows)
{
    soci::session session("odbc", connect);
    soci::transaction transaction(session);
    PlainRow row;
    std::string grade;
    std::tm moment{};
    int isExpress = 0;
    soci::indicator hasWeight = soci::i_ok;
    soci::statement statement =
        (session.prepare << "INSERT INTO WRITING (NUMBER,QUANTITY,PRICE,WEIGHT,NAME,GRADE,MOMENT,"
                            "EXPRESS) VALUES (:n,:q,:p,:w,:a,:g,:m,:e)",
         soci::use(row.number), soci::use(row.quantity), soci::use(row.price),
         soci::use(row.weight, hasWeight), soci::use(row.name), soci::use(grade), soci::use(moment),
         soci::use(isExpress));
    for (int number = 1; number <= rows; ++number) {
        row = MakeRow(number);
        grade.assign(1, row.grade);
        hasWeight = row.hasWeight ? soci::i_ok : soci::i_null;
        moment = MomentOf(row);
        isExpress = row.isExpress ? 1 : 0;
        statement.execute(true);
    }
    transaction.commit();
}

} // namespace

const Contender kSoci = {"soci", &Read, &Write};

} // namespace zelbench
