// Findings as JSON.
#ifndef QVGRAPH_RENDER_CHECK_JSON_H_
#define QVGRAPH_RENDER_CHECK_JSON_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes one object and a newline, always valid UTF-8:
//
//   {"format_version": "1.0", "valid": false,
//    "error_count": 1, "warning_count": 0, "note_count": 0,
//    "files": [{"file", "valid"}],
//    "diagnostics": [
//      {"code", "severity", "message", "file", "pointer",
//       "range": {"start": {"line", "column", "byte"}, "end": {...}},
//       "related": [{"message", "file", "range"}],
//       "hint"}]}
//
// "valid" is true if no listed file has errors; only files that could be read are
// listed. "severity" is "error", "warning" or "note"; "pointer" is a JSON
// pointer, "" for the root. Lines and columns count from 1, columns in code
// points, bytes from 0; ends are exclusive. "hint" is null if there is none.
//
// Files are in the order of the request, findings in the order of the text.
// Messages and hints are for people, so they are printable() (render/text.h).
void renderCheckJson(std::ostream& out, const std::vector<CheckedFile>& files);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_JSON_H_
