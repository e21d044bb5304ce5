#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_TEXTE_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_TEXTE_H

// Files and programs speak UTF-8, values and controls code page 1252.

#include <ZelDt.h>

#include <string>

namespace auftraege {

/// In code page 1252. Refuses, in the name of the column, control characters and what is no UTF-8
/// or not in the code page.
CString Ansi(const std::string& utf8, const std::string& column);

/// The same for eyes only: '?' stands for what the code page lacks.
CString AnsiToLookAt(const std::string& utf8);

std::string Utf8(const CString& ansi);

} // namespace auftraege

#endif
