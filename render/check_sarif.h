// Findings as SARIF 2.1.0, for services and editors that gather them.
#ifndef QVGRAPH_RENDER_CHECK_SARIF_H_
#define QVGRAPH_RENDER_CHECK_SARIF_H_

#include <ostream>
#include <string>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes one log with one run, always valid UTF-8. The run describes all of
// `known`, among which is the rule of every finding; `version` is the tool's.
//
// A path that is relative stays so: it is for the reader to say to what. A
// finding's fingerprint hashes its code and its pointer, so that it stays the
// same when lines move; ":2" behind it tells the second one of a file that has
// the same hash from the first.
void renderCheckSarif(std::ostream& out,
                      const std::vector<CheckedFile>& files,
                      const std::vector<Rule>& known,
                      const std::string& version);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_SARIF_H_
