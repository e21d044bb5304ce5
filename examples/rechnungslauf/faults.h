#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_FAULTS_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_FAULTS_H

#include <functional>
#include <string>

namespace rechnungslauf {

/// Runs `body` and returns in one German line, in UTF-8, what it threw, whatever that was; nothing
/// when it threw nothing.
std::string FaultOf(const std::function<void()>& body);

} // namespace rechnungslauf

#endif
