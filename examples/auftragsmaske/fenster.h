#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_FENSTER_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_FENSTER_H

// What the two systems do differently: fenster_windows.cpp and fenster_linux.cpp.

#include "maske.h"

#include <string>

namespace auftraege {

/// Styles that matter to eyes only, 0 where there are none.
struct Styles {
    DWORD dialog;
    DWORD number; ///< a text that stands at the right
    DWORD line;   ///< a static control that shows a line
    DWORD exDialog;
    DWORD exEdit;
};
extern const Styles kStyles;

/// Makes the mask visible; std::runtime_error where nothing can be seen.
void Show(OrderMask& mask);

/// Lets the user work until the mask is closed.
void Run(const OrderMask& mask);

/// Gives a file another name, in place of a file that has it. False if that failed.
bool Rename(const std::string& from, const std::string& to);

} // namespace auftraege

#endif
