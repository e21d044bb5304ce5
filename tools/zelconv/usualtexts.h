#ifndef ZELDT_TOOLS_ZELCONV_USUALTEXTS_H
#define ZELDT_TOOLS_ZELCONV_USUALTEXTS_H

/// Short cuts for texts as programs write them: what the value classes read and write anyway, at a
/// fraction of the time. Whatever is not usual is left to the class, errors above all.

#include "tools/zelconv/column.h"

#include <string>
#include <string_view>

namespace zelconv {

// ColumnType::readUsual

/// 1 to 15 digits without needless zeros in front, with a minus or none; never "-0".
bool ReadUsualLong(ZelDtBasis& value, std::string_view text, TextForm form);
bool ReadUsualShort(ZelDtBasis& value, std::string_view text, TextForm form);
/// With decimals or none behind a separator; other than 0.
bool ReadUsualDecimal(ZelDtBasis& value, std::string_view text, TextForm form);
bool ReadUsualDouble(ZelDtBasis& value, std::string_view text, TextForm form);
/// "Ja" and "Nein".
bool ReadUsualBool(ZelDtBasis& value, std::string_view text, TextForm form);
/// One character.
bool ReadUsualChar(ZelDtBasis& value, std::string_view text, TextForm form);
/// All but the empty one: the class takes them as they are.
bool ReadUsualString(ZelDtBasis& value, std::string_view text, TextForm form);
/// "05.03.2000 14:07".
bool ReadUsualDateTime(ZelDtBasis& value, std::string_view text, TextForm form);

// ColumnType::appendSql

bool AppendSqlLong(const ZelDtBasis& value, std::string& sql);
bool AppendSqlShort(const ZelDtBasis& value, std::string& sql);
bool AppendSqlDecimal(const ZelDtBasis& value, std::string& sql);
bool AppendSqlDouble(const ZelDtBasis& value, std::string& sql);
bool AppendSqlBool(const ZelDtBasis& value, std::string& sql);
bool AppendSqlChar(const ZelDtBasis& value, std::string& sql);
bool AppendSqlString(const ZelDtBasis& value, std::string& sql);
bool AppendSqlDateTime(const ZelDtBasis& value, std::string& sql);

} // namespace zelconv

#endif
