#ifndef ZELDT_PLATFORM_RECORDSETS_ROWCURSOR_H
#define ZELDT_PLATFORM_RECORDSETS_ROWCURSOR_H

/// Moving through the rows of a result.

#include "platform/recordsets/rowblock.h"

#include <memory>
#include <vector>

namespace zelrs {

class RowCursor {
public:
    virtual ~RowCursor() = default;

    virtual CRecordPosition Move(CRecordMove move, LONGLONG rows) = 0;

    /// A column of the current row, valid until the next move.
    virtual RawValue Value(std::size_t column) const = 0;

    /// Rows that are known to be there.
    virtual LONGLONG RowCount() const = 0;

    /// Whether there is a current row and it is not deleted.
    virtual bool IsOnRow() const = 0;

    /// Take over what happened to the current row in the database. Only for cursors that scroll.
    virtual void DeleteRow() = 0;
    virtual void ReplaceRow(const std::vector<RawValue>& values) = 0;
};

/// A cursor that keeps no rows and goes on only.
std::unique_ptr<RowCursor> MakeForwardCursor(Statement& statement,
                                             const std::vector<ColumnPlan>& plans);

/// A cursor that keeps the rows it has passed.
std::unique_ptr<RowCursor> MakeScrollingCursor(Statement& statement,
                                               const std::vector<ColumnPlan>& plans);

} // namespace zelrs

#endif
