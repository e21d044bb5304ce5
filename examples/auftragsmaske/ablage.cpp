#include "ablage.h"

#include "felder.h"
#include "fenster.h"

#include <cstdio>
#include <stdexcept>

namespace auftraege {

namespace {

/// A file that is written beside the one whose name it gets in the end.
class NewFile {
public:
    explicit NewFile(const std::string& name) : m_name(name), m_temporary(name + ".neu")
    {
        // A folder of that name, or a file that must not be written, is noticed before another
        // file is replaced.
        CFile old;
        CFileException error;
        if (!old.Open(name.c_str(), CFile::modeReadWrite, &error) &&
            error.m_cause != CFileException::fileNotFound)
            Fail();
        // Another program writes the same file, or this one by another name, or one was killed.
        if (old.Open(m_temporary.c_str(), CFile::modeRead))
            throw std::runtime_error(m_temporary + ": ist schon da");
        if (!m_file.Open(m_temporary.c_str(), CFile::modeCreate | CFile::modeWrite))
            Fail();
    }
    ~NewFile()
    {
        m_file.Abort();
        if (!m_published)
            std::remove(m_temporary.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// `write` is given the file.
    template <typename Write>
    void Fill(Write&& write)
    {
        try {
            write(m_file);
            m_file.Close();
        } catch (CException* error) {
            error->Delete();
            Fail();
        }
    }

    void Publish()
    {
        if (!Rename(m_temporary, m_name))
            Fail();
        m_published = true;
    }

private:
    [[noreturn]] void Fail() const
    {
        throw std::runtime_error(m_name + ": kann nicht geschrieben werden");
    }

    std::string m_name;
    std::string m_temporary;
    CFile m_file;
    bool m_published = false;
};

[[noreturn]] void FailToLoad(const std::string& archiveName)
{
    throw std::runtime_error(archiveName + ": kein Archiv eines Auftrags");
}

} // namespace

void SaveOrder(const CAuftrag& order, const std::string& sqlName, const std::string& archiveName)
{
    NewFile sql(sqlName);
    NewFile archive(archiveName);
    sql.Fill([&](CFile& file) {
        const std::string statement = order.ConvToSQL();
        file.Write(statement.data(), static_cast<UINT>(statement.size()));
    });
    archive.Fill([&](CFile& file) {
        CArchive ar(&file, CArchive::store);
        ar << &order;
        ar.Close(); // tells what the destructor would keep to itself
    });
    sql.Publish();
    archive.Publish();
}

std::unique_ptr<CAuftrag> LoadOrder(const std::string& archiveName)
{
    CFile file;
    if (!file.Open(archiveName.c_str(), CFile::modeRead))
        throw std::runtime_error(archiveName + ": kann nicht gelesen werden");
    try {
        CArchive ar(&file, CArchive::load);
        CAuftrag* read = nullptr;
        ar >> read;
        std::unique_ptr<CAuftrag> order(read);
        char more = '\0';
        if (order == nullptr || ar.Read(&more, 1) != 0)
            FailToLoad(archiveName);
        order->Check();
        for (const Field& field : Fields())
            field.constant(*order).ConvToOFL(nullptr);
        return order;
    } catch (CException* error) {
        error->Delete();
    } catch (ZelDtExcep* error) {
        delete error;
    } catch (const Refusal&) { // values that no mask lets through
    }
    FailToLoad(archiveName);
}

} // namespace auftraege
