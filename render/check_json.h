// Findings as JSON.
#ifndef QVGRAPH_RENDER_CHECK_JSON_H_
#define QVGRAPH_RENDER_CHECK_JSON_H_

#include <ostream>
#include <vector>

#include "check/check.h"

namespace qvgraph {

// Writes one object with a newline behind it, always valid UTF-8:
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
// "valid" says that there are no errors in the files that are listed: those that
// could be read. "severity" is "error", "warning" or "note"; "pointer" a JSON
// pointer, "" for the root. Lines and columns count from 1, columns in code
// points, bytes from 0; the end is exclusive. A hint that is not there is null.
//
// Files stand in the order in which they were given, findings in that of the
// text. Messages and hints are for people: what is not printable() in them
// (render/text.h) is shown by its number.
void renderCheckJson(std::ostream& out, const std::vector<CheckedFile>& files);

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_CHECK_JSON_H_
