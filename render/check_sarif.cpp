#include "render/check_sarif.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>

#include "render/json_text.h"
#include "render/text.h"

namespace qvgraph {

namespace {

const char* const SCHEMA =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

// A character that needs no encoding in the path of a URI. A colon does: it would
// make the first part of a relative path a scheme.
bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           (c != '\0' && strchr("/-._~", c) != nullptr);
}

std::string uriOf(const std::string& path) {
    std::string uri = path.compare(0, 1, "/") == 0 ? "file://" : "";
    for (const char c : path) {
        if (isPlain(c)) {
            uri += c;
        } else {
            char encoded[4];
            snprintf(encoded, sizeof(encoded), "%%%02X", static_cast<unsigned char>(c));
            uri += encoded;
        }
    }
    return uri;
}

// FNV-1a in 64 bits.
uint64_t hashOf(const std::string& bytes) {
    uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return hash;
}

// The fingerprints of the findings of one file, in order.
class Fingerprints {
public:
    std::string next(const Finding& finding) {
        const uint64_t hash = hashOf(std::string(finding.code) + '\0' + finding.pointer);
        char text[17];
        snprintf(text, sizeof(text), "%016llx", static_cast<unsigned long long>(hash));
        return std::string(text) + ':' + std::to_string(++mSeen[hash]);
    }

private:
    std::map<uint64_t, size_t> mSeen;
};

Json messageOf(const std::string& text) {
    return {{"text", printable(text)}};
}

// Neither a message nor a hint ends with a full stop.
Json messageOf(const Finding& finding) {
    return messageOf(finding.hint.empty() ? finding.message
                                          : finding.message + ". Hint: " + finding.hint);
}

Json physicalLocationOf(const CheckedFile& file, const Span& span) {
    const Position begin = file.source->position(span.begin);
    const Position end = file.source->position(span.end);
    return {{"artifactLocation", {{"uri", uriOf(file.name)}}},
            {"region",
             {{"startLine", begin.line},
              {"startColumn", begin.column},
              {"endLine", end.line},
              {"endColumn", end.column}}}};
}

Json locationOf(const CheckedFile& file, const Finding& finding) {
    Json location = {{"physicalLocation", physicalLocationOf(file, finding.span)}};
    if (!finding.pointer.empty()) {
        const Json member = {{"fullyQualifiedName", finding.pointer}};
        location["logicalLocations"] = Json::array({member});
    }
    return location;
}

Json relatedLocationsOf(const CheckedFile& file, const Finding& finding) {
    Json locations = Json::array();
    for (const Related& related : finding.related) {
        locations.push_back({{"id", locations.size() + 1},
                             {"physicalLocation", physicalLocationOf(file, related.span)},
                             {"message", messageOf(related.message)}});
    }
    return locations;
}

Json resultOf(const CheckedFile& file, const Finding& finding, const std::string& fingerprint) {
    Json result = {{"ruleId", finding.code},
                   {"level", toText(finding.severity)},
                   {"message", messageOf(finding)},
                   {"locations", Json::array({locationOf(file, finding)})},
                   {"partialFingerprints", {{"codeAndPointer/v1", fingerprint}}}};
    if (!finding.related.empty()) {
        result["relatedLocations"] = relatedLocationsOf(file, finding);
    }
    return result;
}

Json resultsOf(const std::vector<CheckedFile>& files) {
    Json results = Json::array();
    for (const CheckedFile& file : files) {
        Fingerprints fingerprints;
        for (const Finding& finding : file.findings) {
            results.push_back(resultOf(file, finding, fingerprints.next(finding)));
        }
    }
    return results;
}

Json descriptorOf(const Rule* each) {
    const Rule& rule = *each;
    const std::string help = "On a device: " + std::string(rule.device) + "\n\nFix: " + rule.fix;
    return {{"id", rule.code},
            {"shortDescription", {{"text", rule.title}}},
            {"fullDescription", {{"text", rule.explanation}}},
            {"help", {{"text", help}}},
            {"defaultConfiguration", {{"level", toText(rule.severity)}}}};
}

}  // namespace

void renderCheckSarif(std::ostream& out,
                      const std::vector<CheckedFile>& files,
                      const std::vector<const Rule*>& known,
                      const std::string& version) {
    const Json driver = {{"name", "qvgraph"},
                         {"version", version},
                         {"semanticVersion", version},
                         {"rules", jsonArrayOf(known, descriptorOf)}};
    const Json run = {{"tool", {{"driver", driver}}},
                      {"columnKind", "unicodeCodePoints"},
                      {"results", resultsOf(files)}};
    writeJson(out, {{"$schema", SCHEMA}, {"version", "2.1.0"}, {"runs", Json::array({run})}});
}

}  // namespace qvgraph
