#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_FELDER_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_FELDER_H

// The fields of the mask, in one table: what they are called, where they stand, which value of the
// order they show, and by which exchange.

#include "auftrag.h"

#include <span>
#include <string_view>

namespace auftraege {

enum class Kind {
    Text,
    Number,     ///< a text that stands at the right
    Box,        ///< yes or no
    ThreeStates ///< yes, no, or nobody knows
};

/// Where a control stands.
struct Place {
    int row;
    int column; ///< 0 or 1
    int width;  ///< in pixels
};

struct Field {
    const char* name;  ///< of the columns, in the CSV file and in SQL
    const char* label; ///< for people
    const char* unit;  ///< stands behind the control
    Kind kind;
    Place place;

    bool IsBox() const { return kind == Kind::Box || kind == Kind::ThreeStates; }

    /// Moves the value into the control `id` or back.
    void (*exchange)(CDataExchange* dx, int id, CAuftrag& order);
    ZelDtBasis& (*value)(CAuftrag& order);
    const ZelDtBasis& (*constant)(const CAuftrag& order);
    ZelDtString (*sql)(const CAuftrag& order);
    void (*serialize)(CAuftrag& order, CArchive& ar);
};

/// In the order of the tabulator key.
std::span<const Field> Fields();

/// Null for an unknown name.
const Field* FindField(std::string_view name);

/// The identifier of a field's control, and the field of a control, null if it has none.
int ControlOf(const Field& field);
const Field* FieldOf(int control);

} // namespace auftraege

#endif
