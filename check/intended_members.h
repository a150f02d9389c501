// Members that were probably intended to be a key that is missing.
#ifndef QVGRAPH_CHECK_INTENDED_MEMBERS_H_
#define QVGRAPH_CHECK_INTENDED_MEMBERS_H_

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "check/finding.h"
#include "model/model.h"

namespace qvgraph {

// A member that was probably intended to be a key that is missing, and how to fix
// it: "rename", "'stream_ouput'", "to \"stream_output\"".
struct IntendedMember {
    Related location;
    std::string verb;
    std::string key;
    std::string target;
    bool isReported = false;  // another finding reports it
};

// The members that were intended as "node_opts" and its "node_name", or as
// "stream_opts" and its names of a side.
std::vector<IntendedMember> intendedAsNodeName(const Node& node);
std::vector<IntendedMember> intendedAsNames(const Node& node, const Side& side);

// The same for the formats of a side, by the key that was intended.
std::map<std::string, std::vector<IntendedMember>, std::less<>> intendedAsFormats(const Node& node,
                                                                                  const Side& side);

// Adds each location once to a finding, and replaces the hint by their fixes, if
// there are any.
void relate(const std::vector<IntendedMember>& intended, Finding* finding);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_INTENDED_MEMBERS_H_
