// Findings as SARIF 2.1.0, for services and editors that collect findings.
#ifndef QVGRAPH_RENDER_CHECK_SARIF_H_
#define QVGRAPH_RENDER_CHECK_SARIF_H_

#include <ostream>
#include <string>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes one log with one run, always valid UTF-8. The run describes the rules in
// `known`, which must include the rule of every finding; `version` is that of
// the tool.
//
// A relative path stays relative; the reader decides to what. The fingerprint of
// a finding is a hash of its code and its pointer, so it does not change when
// lines move. A number follows it, ":2" for the second finding of a file with
// the same hash.
void renderCheckSarif(std::ostream& out,
                      const std::vector<CheckedFile>& files,
                      const std::vector<const Rule*>& known,
                      const std::string& version);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_SARIF_H_
