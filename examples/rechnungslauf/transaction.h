#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_TRANSACTION_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_TRANSACTION_H

#include <ZELQRNDT017/platform/recordsets/database.h>

#include <stdexcept>

namespace rechnungslauf {

/// What is written while it lives counts after Commit only.
class Transaction {
public:
    explicit Transaction(CDatabase& database) : m_database(database)
    {
        if (!m_database.BeginTrans())
            throw std::runtime_error("Die Datenbank kennt keine Transaktionen");
    }
    ~Transaction()
    {
        if (!m_open)
            return;
        try {
            m_database.Rollback();
        } catch (CException* error) { // the connection is gone, and the transaction with it
            error->Delete();
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit()
    {
        m_database.CommitTrans();
        m_open = false;
    }

private:
    CDatabase& m_database;
    bool m_open = true;
};

} // namespace rechnungslauf

#endif
