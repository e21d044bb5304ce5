#ifndef ZELDT_PLATFORM_FRAMEWORK_FWFIELDS_H
#define ZELDT_PLATFORM_FRAMEWORK_FWFIELDS_H

/// What a record set keeps about its fields. Private to the framework library.

#include "platform/framework/fwrecset.h"

#include <vector>

namespace zelfw {

/// What the program itself said about a field with SetFieldDirty.
enum class DirtyMark { NotSet, Dirty, Clean };

enum class EditMode { None, Adding, Editing };

struct FieldState {
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
    std::vector<FieldState> columns;
    EditMode mode = EditMode::None;
    CRecordsetEngine* engine = nullptr;
    bool isPrepared = false;
};

/// Throws a CDBException whose text names the field.
[[noreturn]] void ThrowFieldError(RETCODE code, const CString& fieldName);

/// Throws a CDBException unless the value fits the field: another kind is a schema mismatch,
/// what the field cannot hold whole is truncated data.
void CheckFieldValue(const CFieldDescription& field, const CFieldValue& value);

} // namespace zelfw

#endif
