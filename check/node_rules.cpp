// What keeps a node from being made: its name, its class, and how many streams
// the class has.
#include <algorithm>
#include <set>
#include <string>

#include "check/node_access.h"
#include "check/rule.h"
#include "check/stored_option.h"
#include "check/words.h"
#include "survey/keys.h"

namespace qvgraph {

namespace {

// ---- node-name --------------------------------------------------------------

void reportNoNodeName(const NodeSubject& node, Reporter* report) {
    const Value* options = node.value->member("node_opts");
    if (options != nullptr && !options->isObject()) {
        return;  // another rule's
    }
    const bool isThere = options != nullptr;
    Finding& finding = report->atKey(
        isThere ? *options : *node.value,
        (isThere ? "\"node_name\" is missing" : quoted(node.value->key) + " has no \"node_opts\"") +
            ": no node is made");
    finding.hint = isThere ? R"(add "node_name": "..." with the node's class)"
                           : R"(add "node_opts": {"node_name": "..."} with the node's class)";
    relate(meantAsNodeName(node), &finding);
}

// What is wrong with the value of "node_name"; empty when nothing is.
std::string faultOfName(const Value& name) {
    if (!name.isString()) {
        return std::string("is ") + toText(name.kind) + ", not a text: no node is made";
    }
    if (untilNul(name.text).empty()) {
        return "is empty: no node is made";
    }
    if (const auto typed = typedIn(name)) {
        return "is " + quoted(typed->text) + ", stored as a number because '" + typed->word +
               "' is a type";
    }
    return "";
}

void nodeName(const Subject& subject, Reporter* report) {
    forEachNode(subject, [report](const NodeSubject& node) {
        const Value* options = node.nodeOptions();
        const Value* name = options == nullptr ? nullptr : options->member("node_name");
        if (name == nullptr) {
            reportNoNodeName(node, report);
            return;
        }
        const std::string fault = faultOfName(*name);
        if (!fault.empty()) {
            report->atValue(*name, "\"node_name\" " + fault).hint =
                "write the name of the node's class, as a text";
        }
    });
}

const Rule NODE_NAME = {
    "node-name",
    Severity::Error,
    "nodes",
    "A node has no name that is a plain text",
    "A node is made of the class that \"node_name\" in its \"node_opts\" names. It has to be a "
    "text, not empty, and not one that is converted to a number.",
    "The node proxy gets an empty name and makes no node; the node's set-up fails. A converted "
    "name reaches the proxy, but the node's options hold a number in its place.",
    "Give the name of the node's class as a text, with a label behind a '#' where several nodes "
    "are of one class.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"nodename": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {"node-class",
     "option-not-stored",
     "typed-value",
     "number-lost",
     "double-narrowed",
     "nul-in-option"},
    nodeName,
    {"unknown-key"}};

// ---- node-class -------------------------------------------------------------

// A node that has a name of which the proxy knows no class.
bool lacksClass(const NodeSubject& node) {
    const Node& made = *node.node;
    const bool isNamed = *made.name.c_str() != '\0';
    return node.canonical && isNamed && !made.created && !made.failedByClass;
}

std::vector<std::string> registeredClasses(const Subject& subject) {
    std::vector<std::string> names;
    for (const NodeClass& known : subject.survey().nodeClasses.classes) {
        names.push_back(known.name);
    }
    return names;
}

std::string hintToClass(const std::string& nearest) {
    return "write " + quoted(nearest) + ", if that class is meant";
}

void nodeClass(const Subject& subject, Reporter* report) {
    const std::vector<std::string> classes = registeredClasses(subject);
    forEachNode(subject, [&](const NodeSubject& node) {
        if (!lacksClass(node)) {
            return;
        }
        const Value& name = *node.nodeOptions()->member("node_name");
        if (node.node->className.empty()) {
            report->atValue(name, quoted(name.text) + " has no class before the '#'").hint =
                "put the class before the '#' and the label behind it";
            return;
        }
        Finding& finding =
            report->atValue(name, classOf(node) + " is not registered: no node is made");
        const std::string nearest = nearestTo(node.node->className, classes);
        finding.hint =
            nearest.empty() ? "load the library that has it with --plugin" : hintToClass(nearest);
    });
}

const Rule NODE_CLASS = {
    "node-class",
    Severity::Error,
    "nodes",
    "A node's class is not known",
    "The class of a node is its name up to a '#'. Without a stub, which stands in for every "
    "class, it has to be registered; and it is never empty.",
    "The node proxy makes no node, and the node's set-up fails.",
    "Load the library that has the class with --plugin, or correct the name.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camara"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {{"Camera", 0, 1}, {"Display", 1, 0}},
     false},
    {},
    nodeClass};

// ---- node-class-stub ----------------------------------------------------------

void nodeClassStub(const Subject& subject, Reporter* report) {
    const std::vector<std::string> classes = registeredClasses(subject);
    forEachNode(subject, [&](const NodeSubject& node) {
        const Node& made = *node.node;
        if (!node.canonical || !made.created || made.registered) {
            return;
        }
        const std::string nearest = nearestTo(made.className, classes);
        if (!nearest.empty()) {
            const Value& name = *node.nodeOptions()->member("node_name");
            report
                ->atValue(name,
                          classOf(node) + " is not registered, but " + quoted(nearest) +
                              " is: a stub stands in for it")
                .hint = hintToClass(nearest);
        }
    });
}

const Rule NODE_CLASS_STUB = {
    "node-class-stub",
    Severity::Warning,
    "nodes",
    "A stub stands in for a class that nearly is a registered one",
    "Node classes are registered, and the class of this node is not among them: a stub stands in "
    "for it. Its name differs from that of a registered class by so little that it may be "
    "misspelt.",
    "Where the device has no class of that name, no node is made, and the node's set-up fails.",
    "Correct the name, or load the library that has the class with --plugin.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camara"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {{"Camera", 0, 1}}},
    {},
    nodeClassStub};

// ---- node-class-failed --------------------------------------------------------

// What the class does, as far as it says so itself.
std::string failureOf(const Node& node) {
    switch (node.outcome) {
        case Outcome::WouldAbort:
            return " aborts the process: " + node.message;
        case Outcome::WouldThrow:
            return " throws: " + node.message;
        default:
            return " makes no node";
    }
}

void nodeClassFailed(const Subject& subject, Reporter* report) {
    forEachNode(subject, [report](const NodeSubject& node) {
        if (node.canonical && node.node->failedByClass) {
            const Value& name = *node.nodeOptions()->member("node_name");
            report->atValue(name, classOf(node) + failureOf(*node.node)).hint =
                "see what the class wants of its options and streams";
        }
    });
}

const Rule NODE_CLASS_FAILED = {
    "node-class-failed",
    Severity::Error,
    "nodes",
    "A node's class fails while the node is set up",
    "The class is registered, but it makes no node, throws, or asserts something, although the "
    "names and formats of the node's streams are all there.",
    "The same as on the desk: the node is not set up, an exception leaves the set-up, or the "
    "process is aborted.",
    "See what the class wants of the node's options and streams; the message is its own.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Broken"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {{"Broken", 0, 1, false}}},
    {},
    nodeClassFailed};

// ---- no-streams ---------------------------------------------------------------

void noStreams(const Subject& subject, Reporter* report) {
    forEachNode(subject, [report](const NodeSubject& node) {
        if (hasStreams(node)) {
            return;
        }
        const Value* options = node.value->member("stream_opts");
        Finding& finding = report->atKey(
            options != nullptr ? *options : *node.value,
            quoted(node.value->key) + " has neither inputs nor outputs: its set-up fails");
        finding.hint = R"(name its streams in "stream_opts": "stream_input", "stream_output")";
        std::vector<MeantMember> meant = meantAsNames(node, node.inputs);
        const std::vector<MeantMember> outputs = meantAsNames(node, node.outputs);
        meant.insert(meant.end(), outputs.begin(), outputs.end());
        relate(meant, &finding);
    });
}

const Rule NO_STREAMS = {
    "no-streams",
    Severity::Error,
    "nodes",
    "A node has neither inputs nor outputs",
    "What counts are the keys of \"stream_opts\" that begin with \"stream_input\" or "
    "\"stream_output\". A node without any, of a class that makes none by itself, has no streams.",
    "The node is made, but its set-up fails, and it is never initialised.",
    "Name the node's streams in \"stream_opts\", or leave the node out.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"fps": 25}
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"fps": 25, "stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {"stream_input": "a", "stream_fmt_in": "f"}
  }
}})",
     {}},
    {},
    noStreams,
    {"unknown-key", "stream-key-in-extra", "option-not-stored"}};

// ---- stream-count -----------------------------------------------------------------

// The first key that declares a stream and is not looked up.
const Value& superfluousIn(const Side& side) {
    std::set<std::string> lookedUp;
    for (const DeclaredEnd& end : side.ends) {
        lookedUp.insert(end.key);
    }
    return **std::find_if(side.declared.begin(), side.declared.end(), [&](const Value* declared) {
        return lookedUp.count(declared->key) == 0;
    });
}

// "1 input", "no input".
std::string numberOf(const Side& side, size_t number) {
    return number == 0 ? std::string("no ") + side.word : counted(number, side.word);
}

std::string hintToCount(const Side& side) {
    const std::string otherwise =
        ", name another class, or correct the numbers where the class is registered";
    switch (side.managers) {
        case 0:
            return (side.declared.size() == 1 ? "remove it" : "remove them") + otherwise;
        case 1:
            return "declare " + inDoubleQuotes(side.nameKey) + " alone" + otherwise;
        default:
            return "declare as many as the class has" + otherwise;
    }
}

void streamCount(const Subject& subject, Reporter* report) {
    forEachSide(subject, [report](const NodeSubject& node, const Side& side) {
        if (namingOf(node, side) != Naming::TooMany) {
            return;
        }
        const size_t declared = side.declared.size();
        report
            ->atKey(superfluousIn(side),
                    classOf(node) + " has " + numberOf(side, side.managers) + ", but " +
                        std::to_string(declared) + (declared == 1 ? " is" : " are") + " declared")
            .hint = hintToCount(side);
    });
}

const Rule STREAM_COUNT = {
    "stream-count",
    Severity::Error,
    "nodes",
    "A node declares more streams than its class has",
    "Every key of \"stream_opts\" that begins with \"stream_input\" or \"stream_output\" declares "
    "a stream. Here the node's class, which is registered, has fewer.",
    "Streams that are declared are not wired; where the class has one stream and several are "
    "declared, the single name is missing, which aborts the process.",
    "Declare as many streams as the class has, or name another class.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output_0": "left", "stream_fmt_out_0": "f",
      "stream_output_1": "right", "stream_fmt_out_1": "f",
      "stream_output_2": "depth", "stream_fmt_out_2": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "left", "stream_fmt_in_0": "f",
      "stream_input_1": "right", "stream_fmt_in_1": "f",
      "stream_input_2": "depth", "stream_fmt_in_2": "f"
    }
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Stereo"},
    "stream_opts": {
      "stream_output_0": "left", "stream_fmt_out_0": "f",
      "stream_output_1": "right", "stream_fmt_out_1": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Display"},
    "stream_opts": {
      "stream_input_0": "left", "stream_fmt_in_0": "f",
      "stream_input_1": "right", "stream_fmt_in_1": "f"
    }
  }
}})",
     {{"Stereo", 0, 2}}},
    {},
    streamCount};

// ---- stream-name-missing ------------------------------------------------------------

std::string hintToName(const Side& side, size_t missing) {
    if (missing > 1) {
        return "name each in \"stream_opts\", as '" + std::string(side.nameFamily) + "<k>'";
    }
    const std::string key = side.managers == 1 ? side.nameKey : freeNameKey(side);
    return "add " + inDoubleQuotes(key) + ": \"...\" to \"stream_opts\", and its format";
}

void reportNameless(const NodeSubject& node, const Side& side, Reporter* report) {
    const auto missing =
        static_cast<size_t>(std::count_if(side.ends.begin(), side.ends.end(), isNameless));
    const size_t named = side.managers - missing;
    const Value* options = node.streamOptions();
    Finding& finding =
        report->atKey(options != nullptr ? *options : *node.value,
                      classOf(node) + " has " + counted(side.managers, side.word) + ", but " +
                          (named == 0   ? "none is"
                           : named == 1 ? "only 1 is"
                                        : "only " + std::to_string(named) + " are") +
                          " named: aborts the process");
    finding.hint = hintToName(side, missing);
    const Value* single = options == nullptr ? nullptr : options->member(side.nameKey);
    if (side.managers > 1 && single != nullptr) {
        finding.related.push_back(
            {"this names the only " + std::string(side.word) + " of a node", single->keySpan});
    }
    relate(meantAsNames(node, side), &finding);
}

void streamNameMissing(const Subject& subject, Reporter* report) {
    forEachSide(subject, [report](const NodeSubject& node, const Side& side) {
        if (namingOf(node, side) == Naming::TooFew) {
            reportNameless(node, side, report);
        }
    });
}

const Rule STREAM_NAME_MISSING = {
    "stream-name-missing",
    Severity::Error,
    "nodes",
    "A node's class has a stream that the node does not name",
    "The node's class has more inputs or outputs than \"stream_opts\" names. One alone is named "
    "by \"stream_input\" or \"stream_output\", several by 'stream_input_<k>' or "
    "'stream_output_<k>'.",
    "The name is looked up and not found: the process is aborted.",
    "Name every stream that the class has, or name another class.",
    {R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {"stream_output": "a", "stream_fmt_out": "f"}
  },
  "node_1": {
    "node_opts": {"node_name": "Join"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f"
    }
  }
}})",
     R"({"pipe_0": {
  "node_0": {
    "node_opts": {"node_name": "Camera"},
    "stream_opts": {
      "stream_output_0": "a", "stream_fmt_out_0": "f",
      "stream_output_1": "b", "stream_fmt_out_1": "f"
    }
  },
  "node_1": {
    "node_opts": {"node_name": "Join"},
    "stream_opts": {
      "stream_input_0": "a", "stream_fmt_in_0": "f",
      "stream_input_1": "b", "stream_fmt_in_1": "f"
    }
  }
}})",
     {{"Join", 2, 0}}},
    {},
    streamNameMissing,
    {"unknown-key", "stream-key-in-extra", "option-not-stored"}};

}  // namespace

std::vector<Rule> nodeRules() {
    return {NODE_NAME,
            NODE_CLASS,
            NODE_CLASS_STUB,
            NODE_CLASS_FAILED,
            NO_STREAMS,
            STREAM_COUNT,
            STREAM_NAME_MISSING};
}

}  // namespace qvgraph
