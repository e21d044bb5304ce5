#ifndef ZELDT_FOUNDATION_DTBASIS_H
#define ZELDT_FOUNDATION_DTBASIS_H

#include "../platform/framework/framework.h"
#include "export.h"

class ZelDtBasisState;
class ZelDtString;
class ZelFormat;

namespace zeldt {
struct StateAccess;
template <typename Imp>
class Cell;
} // namespace zeldt

/// How a value that holds nothing is to be treated.
enum ZelDtWorkingMode {
    ZelDtWmMissing = 0,       ///< it is missing: reading it is error 2
    ZelDtWmNull = 1,          ///< it is a database NULL: it reads and computes as what it stores
    ZelDtWmAlwaysDefined = 2, ///< it is defined from the beginning, and Clear leaves it so
    ZelDtWmDefault = 3,       ///< the mode that ZelDtSetDefaultWorkingMode set
};

/// What ZelDtBasis::GetDtTyp returns for each class.
enum ZelDtTyps {
    ZelDtTypChar = 1,
    ZelDtTypString = 2,
    ZelDtTypLong = 3,
    ZelDtTypShort = 4,
    ZelDtTypDouble = 5,
    ZelDtTypDecimal = 6,
    ZelDtTypBool = 7,
    ZelDtTypDateTime = 8,
    ZelDtTypTime = 9,
    ZelDtTypDateZp = 12,
    ZelDtTypBasis = 13,
};

/// Sets the working mode that ZelDtWmDefault stands for from now on; at first ZelDtWmMissing.
/// ZelDtWmDefault itself sets ZelDtWmMissing; other numbers are stored unchecked. Values that exist
/// already keep their mode. The setting is one of the process and not meant to be changed while
/// other threads make values.
ZELDT_API void ZelDtSetDefaultWorkingMode(ZelDtWorkingMode mode);

/// The working mode that ZelDtWmDefault stands for.
ZELDT_API ZelDtWorkingMode ZelDtGetDefaultWorkingMode();

/// What all value classes share: whether the value is defined, what it means when it is not,
/// whether it was modified since the caller last asked, and how it is displayed.
///
/// Representation: one pointer to a record {working mode, defined, modified, format}, owned by the
/// object. Definedness and modification are 32-bit flags.
///
/// A value is *missing* when it is undefined in mode ZelDtWmMissing and *null* when it is undefined
/// in mode ZelDtWmNull. Every change of the value or of its definedness sets the modified flag;
/// only the caller resets it. The format is the caller's, is never copied and may be null.
///
/// Errors are thrown as ZelDtExcep*. The operations of this class fail only when memory is
/// exhausted or an archive fails (error 1).
class ZELDT_API ZelDtBasis : public CObject {
    DECLARE_DYNAMIC(ZelDtBasis)

public:
    ~ZelDtBasis() override;

    /// Copies the definedness of `other`; a change marks this value modified. Nothing happens in
    /// mode ZelDtWmAlwaysDefined. Mode and format stay.
    ZelDtBasis& operator=(const ZelDtBasis& other);

protected:
    /// Writes or reads the defined flag as one 32-bit word. A flag that differs from the one held
    /// marks the value modified. An archive that fails is error 1 with the archive's exception as
    /// cause; the value is then unchanged.
    void Serialize(CArchive& ar) override;

public:
    void AssertValid() const override;
    void Dump(CDumpContext& dc) const override;

    /// Makes the value undefined and marks it modified if it was defined and its mode is not
    /// ZelDtWmAlwaysDefined; a flag that is neither 0 nor 1 goes too. Value classes first reset
    /// their value.
    virtual void Clear();

    /// Sets the modified flag as given.
    virtual void SetModified(int modified);

    /// The code of the class.
    virtual ZelDtTyps GetDtTyp() const;

    /// Takes over value and definedness of `other`, which must be of the same class: else error 10.
    virtual void Assign(const ZelDtBasis& other) = 0;

    /// A copy on the heap, without format; the caller owns it.
    virtual ZelDtBasis* NewObject() const = 0;

    /// The text to display, shaped by `format`, else by the own format, else by the class default;
    /// empty when undefined. A format that does not suit the value: error 1.
    virtual CString ConvToOFL(const ZelFormat* format) const = 0;

    /// Reads a displayed text; the format is chosen as by ConvToOFL. A null or empty text clears
    /// the value. A text that the format rejects is error 1 and changes nothing.
    virtual void SetFromOFL(const char* text, const ZelFormat* format) = 0;

    /// The external text, with `defined` set to 1 or 0 and `version` to the version of the form.
    virtual ZelDtString ConvToExtern(int& defined, unsigned short& version) const = 0;

    /// Reads an external text. Another version than that of the class is error 14. With `defined`
    /// 1 and a text the value becomes defined, an undefined text is then error 13 and one that
    /// cannot be read error 1. Otherwise the value is cleared.
    virtual void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) = 0;

    /// Always 0; keeps its place for callers.
    virtual int ReservedQuery() const;

    int IsDefined() const;
    /// Undefined in mode ZelDtWmMissing.
    int IsMissing() const;
    /// Undefined in mode ZelDtWmNull.
    int IsNull() const;

    int IsModified() const;
    /// Returns the modified flag and sets it to `newValue`.
    int GetAndResetModified(int newValue);

    ZelDtWorkingMode GetWorkingMode() const;
    /// Sets the mode. ZelDtWmAlwaysDefined makes the value defined without marking it modified.
    /// ZelDtWmDefault only stores the default mode, whichever that is.
    void SetWorkingMode(ZelDtWorkingMode mode);

    /// The own format; null at first. Not owned: it must live as long as it is set.
    const ZelFormat* GetFormat() const;
    void SetFormat(const ZelFormat* format);

protected:
    /// A value in `mode` that is defined if `defined` is 1 or the mode is ZelDtWmAlwaysDefined; not
    /// modified, without format.
    ZelDtBasis(int defined, ZelDtWorkingMode mode);
    /// Copies mode, definedness and modification, not the format.
    ZelDtBasis(const ZelDtBasis& other);
    /// For the library's own classes, whose implementation objects share a block with the record.
    template <typename Imp>
    explicit ZelDtBasis(const zeldt::Cell<Imp>& cell);

    /// Stores the defined flag; a change marks the value modified.
    void SetDefined(int defined);

    /// Whether a binary operation on `a` and `b` gives a defined result: 1 if one is defined and
    /// the other defined or undefined in another mode than ZelDtWmMissing, else 0.
    int CheckDefinedForArithmetic(const ZelDtBasis& a, const ZelDtBasis& b) const;

    /// Keeps definedness and modification while a value is being read, and puts them back unless
    /// Commit is called. For Serialize of the value classes.
    class ZELDT_API Rollback {
    public:
        explicit Rollback(ZelDtBasis& value);
        ~Rollback();
        Rollback(const Rollback&) = delete;
        Rollback& operator=(const Rollback&) = delete;

        void Commit();

    private:
        ZelDtBasis* m_pValue;
        int m_bDefined;
        int m_bModified;
    };

private:
    friend struct zeldt::StateAccess;

    ZelDtBasisState* m_pState;
};

#endif
