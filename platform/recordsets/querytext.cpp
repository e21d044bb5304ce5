// The statements behind a record set.

#include "platform/recordsets/querytext.h"

#include "platform/framework/fwdbexc.h"
#include "platform/recordsets/sqltext.h"

#include <algorithm>
#include <cstddef>

namespace zelrs {

namespace {

std::string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

CString TextOf(std::string_view text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

constexpr std::size_t kNowhere = std::string_view::npos;

/// Where the clauses of a SELECT begin that matter here; the length of the text when there is none.
struct Clauses {
    std::size_t from = kNowhere;
    std::size_t fromEnd = kNowhere; ///< behind the word FROM
    std::size_t where = kNowhere;
    std::size_t whereEnd = kNowhere;
    std::size_t afterWhere = kNowhere; ///< GROUP, HAVING, WINDOW, ORDER, LIMIT, ...
    std::size_t order = kNowhere;
    std::size_t orderEnd = kNowhere; ///< behind ORDER BY
    std::size_t afterOrder = kNowhere;
    bool isCombined = false; ///< UNION and the like
    bool isGrouped = false;  ///< GROUP BY, HAVING, DISTINCT
};

bool IsAny(const SqlToken& token, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return token.Is(word); });
}

void SetOnce(std::size_t& position, std::size_t value)
{
    if (position == kNowhere)
        position = value;
}

/// Takes a word outside of parentheses into account.
void NoteWord(Clauses& clauses, const SqlToken& token)
{
    const std::size_t end = token.begin + token.text.size();
    if (token.Is("FROM") && clauses.from == kNowhere) {
        clauses.from = token.begin;
        clauses.fromEnd = end;
    } else if (token.Is("WHERE") && clauses.where == kNowhere) {
        clauses.where = token.begin;
        clauses.whereEnd = end;
    } else if (token.Is("ORDER")) {
        SetOnce(clauses.afterWhere, token.begin);
        SetOnce(clauses.order, token.begin);
    } else if (token.Is("BY") && clauses.order != kNowhere) {
        SetOnce(clauses.orderEnd, end);
    } else if (IsAny(token, {"GROUP", "HAVING"})) {
        SetOnce(clauses.afterWhere, token.begin);
        clauses.isGrouped = true;
    } else if (token.Is("WINDOW")) {
        SetOnce(clauses.afterWhere, token.begin);
    } else if (IsAny(token, {"LIMIT", "OFFSET", "FETCH", "FOR"})) {
        SetOnce(clauses.afterWhere, token.begin);
        SetOnce(clauses.afterOrder, token.begin);
    } else if (IsAny(token, {"UNION", "INTERSECT", "EXCEPT"})) {
        clauses.isCombined = true;
    } else if (token.Is("DISTINCT") && clauses.from == kNowhere) {
        clauses.isGrouped = true;
    }
}

/// The end of what is meaningful: a comment or a semicolon behind it must not swallow additions.
Clauses FindClauses(std::string_view sql)
{
    Clauses clauses;
    SqlScanner scanner(sql);
    int depth = 0;
    std::size_t end = 0;
    bool isMember = false; // behind a point every word is a name
    for (SqlToken token = scanner.NextMeaningful(); token.part != SqlPart::End;
         token = scanner.NextMeaningful()) {
        if (token.text == ";" && depth == 0)
            break;
        end = token.begin + token.text.size();
        if (token.text == "(" || token.text == ")")
            depth += token.text == "(" ? 1 : -1;
        else if (depth == 0 && token.part == SqlPart::Word && !isMember)
            NoteWord(clauses, token);
        isMember = token.text == ".";
    }
    SetOnce(clauses.afterOrder, end);
    SetOnce(clauses.afterWhere, end);
    return clauses;
}

/// The name of the only table in a list of tables, without its alias: A, "B"."A". Empty when the
/// list holds anything else.
std::string_view OnlyTable(std::string_view tables)
{
    SqlScanner scanner(tables);
    SqlToken token = scanner.NextMeaningful();
    const std::size_t begin = token.begin;
    SqlToken last;
    for (;;) {
        if (token.part == SqlPart::Symbol || token.part == SqlPart::End)
            return {};
        last = token;
        token = scanner.NextMeaningful();
        if (token.text != ".")
            break;
        token = scanner.NextMeaningful();
    }
    if (token.Is("AS"))
        token = scanner.NextMeaningful();
    const bool hasAlias = token.part != SqlPart::Symbol && token.part != SqlPart::End;
    if (hasAlias)
        token = scanner.NextMeaningful();
    return token.part == SqlPart::End ? tables.substr(begin, last.begin + last.text.size() - begin)
                                      : std::string_view();
}

CString KeyCondition(const std::vector<CString>& keys)
{
    CString condition;
    for (const CString& key : keys)
        condition += (condition.IsEmpty() ? " WHERE " : " AND ") + key + "=?";
    return condition;
}

} // namespace

QueryForm FormOf(const CString& sql)
{
    SqlScanner scanner(ViewOf(sql));
    SqlToken first = scanner.NextMeaningful();
    if (first.text == "{")
        return QueryForm::Call;
    while (first.text == "(")
        first = scanner.NextMeaningful();
    const bool isAlone = scanner.NextMeaningful().part == SqlPart::End;
    if (isAlone)
        return QueryForm::Table;
    if (IsAny(first, {"SELECT", "WITH", "VALUES"}))
        return QueryForm::Select;
    return first.Is("CALL") ? QueryForm::Call : QueryForm::Table;
}

CString TableOf(const CString& sql)
{
    const std::string_view text = ViewOf(sql);
    if (FormOf(sql) == QueryForm::Table)
        return TextOf(OnlyTable(text));
    SqlScanner scanner(text);
    const Clauses clauses = FindClauses(text);
    if (!scanner.NextMeaningful().Is("SELECT") || clauses.isCombined || clauses.isGrouped ||
        clauses.from == kNowhere)
        return CString();
    const std::size_t end = std::min(clauses.where, clauses.afterWhere);
    return TextOf(OnlyTable(text.substr(clauses.fromEnd, end - clauses.fromEnd)));
}

CString SelectText(const std::vector<CString>& columns, const CString& table)
{
    CString text;
    for (const CString& column : columns)
        text += (text.IsEmpty() ? "SELECT " : ",") + column;
    return text + " FROM " + table;
}

CString WithConditions(const CString& select, const CString& filter, const CString& sort)
{
    if (filter.IsEmpty() && sort.IsEmpty())
        return select;
    const std::string_view text = ViewOf(select);
    const Clauses at = FindClauses(text);
    if (at.isCombined)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE,
                            "A SELECT of several parts takes no filter and no sort order.");

    const bool hasWhere = at.where != kNowhere;
    const std::size_t tablesEnd = hasWhere ? at.where : at.afterWhere;
    CString result = TextOf(text.substr(0, tablesEnd));
    if (hasWhere && filter.IsEmpty())
        result += TextOf(text.substr(at.where, at.afterWhere - at.where));
    else if (hasWhere)
        result += " WHERE (" + TextOf(text.substr(at.whereEnd, at.afterWhere - at.whereEnd)) +
                  "\n) AND (" + filter + "\n) ";
    else if (!filter.IsEmpty())
        result += " WHERE " + filter + "\n";

    const bool hasOrder = at.order != kNowhere && at.orderEnd != kNowhere;
    const std::size_t groupsEnd = hasOrder ? at.order : at.afterOrder;
    result += TextOf(text.substr(at.afterWhere, groupsEnd - at.afterWhere));
    if (!sort.IsEmpty())
        result += " ORDER BY " + sort + "\n";
    if (hasOrder)
        result += (sort.IsEmpty() ? " ORDER BY" : ",") +
                  TextOf(text.substr(at.orderEnd, at.afterOrder - at.orderEnd));
    return result + TextOf(text.substr(at.afterOrder));
}

CString CallText(const CString& sql)
{
    const CString text = CString(sql).Trim();
    return text.Find('{') == 0 ? text : "{" + text + "}";
}

CString InsertText(const CString& table, const CString& names, const CString& markers)
{
    return "INSERT INTO " + table + " (" + names + ") VALUES (" + markers + ")";
}

CString UpdateText(const CString& table, const CString& changes, const std::vector<CString>& keys)
{
    return "UPDATE " + table + " SET " + changes + KeyCondition(keys);
}

CString DeleteText(const CString& table, const std::vector<CString>& keys)
{
    return "DELETE FROM " + table + KeyCondition(keys);
}

CString CountText(const CString& table, const std::vector<CString>& keys)
{
    return "SELECT COUNT(*) FROM " + table + KeyCondition(keys);
}

CString Literal(const CString& text)
{
    CString doubled = text;
    doubled.Replace("'", "''");
    return "'" + doubled + "'";
}

} // namespace zelrs
