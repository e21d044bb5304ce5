#ifndef ZELDT_PLATFORM_FRAMEWORK_FWFIELDS_H
#define ZELDT_PLATFORM_FRAMEWORK_FWFIELDS_H

/// What a record set keeps about its fields. Private to the framework library.

#include "platform/framework/fwrecset.h"

#include <cstddef>
#include <vector>

namespace zelfw {

/// What the program itself said about a field with SetFieldDirty.
enum class DirtyMark { NotSet, Dirty, Clean };

enum class EditMode { None, Adding, Editing };

/// Makes a value one of the given kind and null, without giving its text's buffer away.
inline void ResetValue(CFieldValue& value, CFieldKind kind)
{
    value.kind = kind;
    value.isNull = true;
    value.integer = 0;
    value.real = 0;
    value.time = TIMESTAMP_STRUCT();
    if (!value.text.IsEmpty())
        value.text.Truncate(0);
}

struct FieldState {
    const void* address = nullptr; ///< of the member
    CFieldDescription description;
    bool isNull = false;
    bool isDirty = false; ///< result of the last MarkFor... operation
    DirtyMark mark = DirtyMark::NotSet;
    bool wasSetNull = false; ///< by SetFieldNull, since AddNew or Edit

    /// The member when it was last marked null: one that differs from it was given a value since.
    CFieldValue valueWhenNull;

    /// What AddNew or Edit found; CancelUpdate gives it back.
    CFieldValue original;
    bool originalIsNull = false;

    /// The column of the current row, checked.
    CFieldValue fetched;
};

struct RecordsetFields {
    /// The only field of a member; null when there is none or several, and for a null address.
    FieldState* Find(const void* address);

    /// To be called when the members are known.
    void NoteMembers();

    std::vector<FieldState> columns;
    EditMode mode = EditMode::None;
    CRecordsetEngine* engine = nullptr;
    bool isPrepared = false;

    /// The names and markers of the fields that the last Update wrote, for programs that write the
    /// same fields again and again.
    struct Texts {
        CString names;
        CString markers;
    };

    /// The texts for the fields that are dirty now, null when they have to be made.
    const Texts* FindTexts() const;
    void KeepTexts(const CFieldChanges& changes);

private:
    std::vector<bool> DirtyFields() const;

    Texts m_texts;
    std::vector<bool> m_textsFields; ///< whether the field is in the texts
    EditMode m_textsMode = EditMode::None;
    bool m_hasSharedMembers = false;
    std::size_t m_lastFound = 0; ///< programs ask for the fields one after the other
};

/// Throws a CDBException whose text names the field.
[[noreturn]] void ThrowFieldError(RETCODE code, const CString& fieldName);

/// Throws a CDBException unless the value fits the field: another kind is a schema mismatch,
/// what the field cannot hold whole is truncated data.
void CheckFieldValue(const CFieldDescription& field, const CFieldValue& value);

} // namespace zelfw

#endif
