#include "foundation/DTBASIS.h"

#include "foundation/DTSTATE.h"

IMPLEMENT_DYNAMIC(ZelDtBasis, CObject)

namespace {

constexpr zeldt::Operation kSerialize = {"DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

} // namespace

constinit std::atomic<ZelDtWorkingMode> zeldt::defaultMode{ZelDtWmMissing};

#ifndef ZELDT_NO_POOL
void* zeldt::TakeFromStore(const Operation& operation, std::size_t sizeIndex)
{
    return Guarded(operation, [=] { return TakeFromStore(sizeIndex); });
}
#endif

void ZelDtSetDefaultWorkingMode(ZelDtWorkingMode mode)
{
    zeldt::defaultMode.store(mode == ZelDtWmDefault ? ZelDtWmMissing : mode,
                             std::memory_order_relaxed);
}

ZelDtWorkingMode ZelDtGetDefaultWorkingMode()
{
    return zeldt::defaultMode.load(std::memory_order_relaxed);
}

ZelDtBasis::ZelDtBasis(int defined, ZelDtWorkingMode mode)
    : m_pState(zeldt::NewState<0>(defined, mode))
{}

ZelDtBasis::ZelDtBasis(const ZelDtBasis& other) : CObject(), m_pState(zeldt::NewState<0>(other)) {}

ZelDtBasis::~ZelDtBasis()
{
    zeldt::DeleteState(m_pState);
    m_pState = nullptr;
}

ZelDtBasis& ZelDtBasis::operator=(const ZelDtBasis& other)
{
    if (this != &other && m_pState->mode != ZelDtWmAlwaysDefined)
        SetDefined(other.m_pState->defined);
    return *this;
}

void ZelDtBasis::Serialize(CArchive& ar)
{
    zeldt::Guarded(kSerialize, [&] {
        if (ar.IsStoring()) {
            ar << static_cast<DWORD>(m_pState->defined);
        } else {
            DWORD defined = 0;
            ar >> defined;
            SetDefined(static_cast<int>(defined));
        }
    });
}

void ZelDtBasis::AssertValid() const {}

void ZelDtBasis::Dump(CDumpContext&) const {}

void ZelDtBasis::Clear()
{
    // Also a flag that is neither 0 nor 1, as external texts and archives may bring it.
    if (m_pState->mode != ZelDtWmAlwaysDefined)
        SetDefined(0);
}

void ZelDtBasis::SetModified(int modified)
{
    m_pState->modified = modified;
}

ZelDtTyps ZelDtBasis::GetDtTyp() const
{
    return ZelDtTypBasis;
}

int ZelDtBasis::ReservedQuery() const
{
    return 0;
}

int ZelDtBasis::IsDefined() const
{
    return m_pState->defined == 1;
}

int ZelDtBasis::IsMissing() const
{
    return m_pState->defined != 1 && m_pState->mode == ZelDtWmMissing;
}

int ZelDtBasis::IsNull() const
{
    return m_pState->defined != 1 && m_pState->mode == ZelDtWmNull;
}

int ZelDtBasis::IsModified() const
{
    return m_pState->modified;
}

int ZelDtBasis::GetAndResetModified(int newValue)
{
    const int before = m_pState->modified;
    m_pState->modified = newValue;
    return before;
}

ZelDtWorkingMode ZelDtBasis::GetWorkingMode() const
{
    return static_cast<ZelDtWorkingMode>(m_pState->mode);
}

void ZelDtBasis::SetWorkingMode(ZelDtWorkingMode mode)
{
    m_pState->mode = zeldt::Resolved(mode);
    if (mode == ZelDtWmAlwaysDefined)
        m_pState->defined = 1;
}

const ZelFormat* ZelDtBasis::GetFormat() const
{
    return m_pState->format;
}

void ZelDtBasis::SetFormat(const ZelFormat* format)
{
    m_pState->format = format;
}

void ZelDtBasis::SetDefined(int defined)
{
    if (m_pState->defined == defined)
        return;
    m_pState->defined = defined;
    m_pState->modified = 1;
}

int ZelDtBasis::CheckDefinedForArithmetic(const ZelDtBasis& a, const ZelDtBasis& b) const
{
    if (!a.IsDefined() && !b.IsDefined())
        return 0;
    return !a.IsMissing() && !b.IsMissing();
}

ZelDtBasis::Rollback::Rollback(ZelDtBasis& value)
    : m_pValue(&value), m_bDefined(value.m_pState->defined), m_bModified(value.m_pState->modified)
{}

ZelDtBasis::Rollback::~Rollback()
{
    if (m_pValue == nullptr)
        return;
    m_pValue->m_pState->defined = m_bDefined;
    m_pValue->m_pState->modified = m_bModified;
}

void ZelDtBasis::Rollback::Commit()
{
    m_pValue = nullptr;
}
