#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_TIPPEN_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_TIPPEN_H

// A user made of a text file, for tests and for systems without a screen.

#include "maske.h"

#include <string>
#include <vector>

namespace auftraege {

/// One thing that the user does.
struct Step {
    int line = 0;
    const Field* field = nullptr; ///< null: presses the button
    int button = 0;
    CString text;    ///< what goes into a field for text
    int state = 0;   ///< what a box is brought to
    std::string raw; ///< the line, in UTF-8
};

/// Reads the steps of a file, a line each:
///
///     Menge=12            types a text in place of the one that is there
///     Rabatt=             types nothing in its place
///     Express=Ja          clicks a box: Ja, Nein, and nothing for the third state
///     [OK]                presses a button; [Abbrechen] is the other one
///
/// Empty lines are passed over. A line that is none of these is std::runtime_error.
std::vector<Step> ReadSteps(const std::string& fileName);

/// Does what the steps say, as long as the mask is open, and prints it. OK is pressed in the end if
/// the last step is no button. Where a button leaves the mask open, the field with the focus is
/// printed.
void Follow(const std::vector<Step>& steps, OrderMask& mask);

} // namespace auftraege

#endif
