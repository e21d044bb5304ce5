#include "foundation/DTBASIS.h"

#include "foundation/DTGUARD.h"
#include "foundation/DTSTATE.h"

#include <atomic>

IMPLEMENT_DYNAMIC(ZelDtBasis, CObject)

namespace {

using zeldt::Guarded;
using zeldt::Operation;

constexpr Operation kConstruct = {"DTBASIS", "ZelDtBasis", "ZelDtBasis(BOOL,ZelDtWorkingMode)"};
constexpr Operation kCopy = {"DTBASIS", "ZelDtBasis", "ZelDtBasis(ZelDtBasis&)"};
constexpr Operation kSerialize = {"DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

std::atomic<ZelDtWorkingMode> defaultMode{ZelDtWmMissing};

/// The mode that is stored where `mode` is asked for.
ZelDtWorkingMode Resolved(ZelDtWorkingMode mode)
{
    return mode == ZelDtWmDefault ? ZelDtGetDefaultWorkingMode() : mode;
}

} // namespace

void ZelDtSetDefaultWorkingMode(ZelDtWorkingMode mode)
{
    defaultMode.store(mode == ZelDtWmDefault ? ZelDtWmMissing : mode, std::memory_order_relaxed);
}

ZelDtWorkingMode ZelDtGetDefaultWorkingMode()
{
    return defaultMode.load(std::memory_order_relaxed);
}

ZelDtBasis::ZelDtBasis(int defined, ZelDtWorkingMode mode)
    : m_pState(Guarded(kConstruct, [=] {
          const ZelDtWorkingMode resolved = Resolved(mode);
          return new ZelDtBasisState(resolved, resolved == ZelDtWmAlwaysDefined ? 1 : defined, 0);
      }))
{}

ZelDtBasis::ZelDtBasis(const ZelDtBasis& other)
    : CObject(), m_pState(Guarded(kCopy, [&other] {
          return new ZelDtBasisState(other.GetWorkingMode(), other.m_pState->defined,
                                     other.m_pState->modified);
      }))
{}

ZelDtBasis::~ZelDtBasis()
{
    delete m_pState;
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
    Guarded(kSerialize, [&] {
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
    m_pState->mode = Resolved(mode);
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
