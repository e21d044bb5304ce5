// Moving through the rows of a result.

#include "platform/recordsets/rowcursor.h"

#include "platform/recordsets/rowstore.h"

#include <algorithm>
#include <limits>

namespace zelrs {

namespace {

/// More rows than there are anywhere; sums of two of them are still numbers.
constexpr LONGLONG kMostRows = std::numeric_limits<LONGLONG>::max() / 4;

LONGLONG Limited(LONGLONG rows)
{
    return std::clamp(rows, -kMostRows, kMostRows);
}

class ForwardCursor : public RowCursor {
public:
    ForwardCursor(Statement& statement, const std::vector<ColumnPlan>& plans)
        : m_block(statement, plans)
    {}

    CRecordPosition Move(CRecordMove move, LONGLONG rows) override
    {
        const bool isFirst = move == CRecordMove::First && m_passed == 0;
        if (!isFirst && (move != CRecordMove::Relative || rows < 0))
            AfxThrowDBException(AFX_SQL_ERROR_RECORDSET_FORWARD_ONLY);
        for (LONGLONG steps = isFirst ? 1 : rows; steps > 0 && !m_isAtEnd; --steps)
            Step();
        if (!m_isAtEnd)
            return CRecordPosition::OnRecord;
        return m_passed == 0 ? CRecordPosition::Empty : CRecordPosition::AfterLast;
    }

    RawValue Value(std::size_t column) const override { return m_block.Value(m_row, column); }
    LONGLONG RowCount() const override { return m_passed; }
    bool IsOnRow() const override { return m_passed != 0 && !m_isAtEnd; }
    void DeleteRow() override { AfxThrowDBException(AFX_SQL_ERROR_RECORDSET_READONLY); }
    void ReplaceRow(const std::vector<RawValue>&) override
    {
        AfxThrowDBException(AFX_SQL_ERROR_RECORDSET_READONLY);
    }

private:
    void Step()
    {
        const bool isInBlock = m_passed != 0 && m_row + 1 < m_block.RowCount();
        m_row = isInBlock ? m_row + 1 : 0;
        m_isAtEnd = !isInBlock && !m_block.Fetch();
        m_passed += m_isAtEnd ? 0 : 1;
    }

    RowBlock m_block;
    std::size_t m_row = 0;
    LONGLONG m_passed = 0;
    bool m_isAtEnd = false;
};

class ScrollingCursor : public RowCursor {
public:
    ScrollingCursor(Statement& statement, const std::vector<ColumnPlan>& plans)
        : m_block(statement, plans), m_store(plans.size())
    {}

    CRecordPosition Move(CRecordMove move, LONGLONG rows) override
    {
        switch (move) {
        case CRecordMove::First:
            MoveFrom(-1, 1);
            break;
        case CRecordMove::Last:
            MoveFrom(FetchAll(), -1);
            break;
        case CRecordMove::Relative:
            MoveFrom(m_row, Limited(rows));
            break;
        case CRecordMove::Absolute:
            MoveFrom(rows < 0 ? FetchAll() : -1, Limited(rows));
            break;
        }
        return Position();
    }

    RawValue Value(std::size_t column) const override { return m_store.Value(Index(), column); }

    LONGLONG RowCount() const override
    {
        return static_cast<LONGLONG>(m_store.RowCount() - m_store.DeletedCount());
    }

    bool IsOnRow() const override
    {
        return m_row >= 0 && m_row < Fetched() && !m_store.IsDeleted(Index());
    }

    void DeleteRow() override { m_store.Delete(Index()); }
    void ReplaceRow(const std::vector<RawValue>& values) override
    {
        m_store.Replace(Index(), values);
    }

private:
    std::size_t Index() const { return static_cast<std::size_t>(m_row); }
    LONGLONG Fetched() const { return static_cast<LONGLONG>(m_store.RowCount()); }

    /// Whether there is such a row.
    bool FetchTo(LONGLONG row)
    {
        while (row >= Fetched() && !m_isComplete) {
            m_isComplete = !m_block.Fetch();
            if (!m_isComplete)
                m_store.Append(m_block);
        }
        return row < Fetched();
    }

    /// The position behind the last row.
    LONGLONG FetchAll()
    {
        FetchTo(kMostRows);
        return Fetched();
    }

    /// A failure to fetch leaves the position as it was.
    void MoveFrom(LONGLONG start, LONGLONG rows)
    {
        if (m_store.DeletedCount() == 0) {
            const LONGLONG target = std::max<LONGLONG>(start + rows, -1);
            m_row = FetchTo(target) ? target : Fetched();
            return;
        }
        LONGLONG row = start;
        for (LONGLONG steps = rows; steps > 0 && FetchTo(row); --steps)
            row = Neighbour(row, 1);
        for (LONGLONG steps = rows; steps < 0 && row >= 0; ++steps)
            row = Neighbour(row, -1);
        m_row = row;
    }

    /// The next row in a direction that is not deleted.
    LONGLONG Neighbour(LONGLONG row, LONGLONG direction)
    {
        do
            row += direction;
        while (row >= 0 && FetchTo(row) && m_store.IsDeleted(static_cast<std::size_t>(row)));
        return row;
    }

    CRecordPosition Position()
    {
        if (IsOnRow())
            return CRecordPosition::OnRecord;
        if (m_row >= 0 && m_row < Fetched())
            AfxThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
        FetchTo(0);
        if (m_isComplete && RowCount() == 0)
            return CRecordPosition::Empty;
        return m_row < 0 ? CRecordPosition::BeforeFirst : CRecordPosition::AfterLast;
    }

    RowBlock m_block;
    RowStore m_store;
    LONGLONG m_row = -1;
    bool m_isComplete = false;
};

} // namespace

std::unique_ptr<RowCursor> MakeForwardCursor(Statement& statement,
                                             const std::vector<ColumnPlan>& plans)
{
    return std::make_unique<ForwardCursor>(statement, plans);
}

std::unique_ptr<RowCursor> MakeScrollingCursor(Statement& statement,
                                               const std::vector<ColumnPlan>& plans)
{
    return std::make_unique<ScrollingCursor>(statement, plans);
}

} // namespace zelrs
