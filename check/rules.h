// The registry of all rules.
#ifndef QVGRAPH_CHECK_RULES_H_
#define QVGRAPH_CHECK_RULES_H_

#include <string>
#include <string_view>
#include <vector>

#include "check/rule.h"

// Every rule, by family, in the order of the rules reference.
#define QVGRAPH_RULES(RULE)        \
    RULE(SYNTAX)                   \
    RULE(NO_DOCUMENT)              \
    RULE(ROOT_NOT_OBJECT)          \
    RULE(NO_PIPES)                 \
    RULE(DUPLICATE_KEY)            \
    RULE(NUL_IN_TEXT)              \
    RULE(BYTE_ORDER_MARK)          \
    RULE(INVALID_UTF8)             \
    RULE(PIPE_NOT_ADDRESSABLE)     \
    RULE(PIPE_GAP)                 \
    RULE(SECTION_NOT_OBJECT)       \
    RULE(ID_NOT_CANONICAL)         \
    RULE(KEY_ORDER)                \
    RULE(UNKNOWN_KEY)              \
    RULE(SECTION_IGNORED)          \
    RULE(LINK_MODE_NOT_TEXT)       \
    RULE(THREAD_COUNT)             \
    RULE(EXECUTOR_WITHOUT_OPTIONS) \
    RULE(OPTION_TOO_LONG)          \
    RULE(OPTION_NOT_STORED)        \
    RULE(NUL_IN_OPTION)            \
    RULE(OPTION_OVERRIDDEN)        \
    RULE(OPTION_TYPE)              \
    RULE(TYPED_VALUE)              \
    RULE(TYPE_WORD)                \
    RULE(NUMBER_LOST)              \
    RULE(DOUBLE_NARROWED)          \
    RULE(NODE_NAME)                \
    RULE(NODE_CLASS)               \
    RULE(NODE_CLASS_STUB)          \
    RULE(NODE_CLASS_FAILED)        \
    RULE(NO_STREAMS)               \
    RULE(STREAM_COUNT)             \
    RULE(STREAM_NAME_MISSING)      \
    RULE(SINGLE_STREAM_KEY)        \
    RULE(STREAM_KEYS_MIXED)        \
    RULE(STREAM_NOT_TEXT)          \
    RULE(STREAM_NAME_EMPTY)        \
    RULE(STREAM_FORMAT_MISSING)    \
    RULE(STREAM_FAMILIES_DIFFER)   \
    RULE(STREAM_KEY_IN_EXTRA)      \
    RULE(STREAM_MODE)              \
    RULE(STREAM_MODE_UNKNOWN)      \
    RULE(TWO_PRODUCERS)            \
    RULE(NO_PRODUCER)              \
    RULE(NO_CONSUMER)              \
    RULE(FORMAT_MISMATCH)          \
    RULE(SELF_LOOP)                \
    RULE(CYCLE)                    \
    RULE(DISCONNECTED)             \
    RULE(UNUSED_IGNORE)

namespace qvgraph {

#define QVGRAPH_DECLARE_RULE(rule) extern const Rule rule;
QVGRAPH_RULES(QVGRAPH_DECLARE_RULE)
#undef QVGRAPH_DECLARE_RULE

// Every rule, in the same order.
const std::vector<const Rule*>& rules();

// The code of every rule, in the same order.
std::vector<std::string> ruleCodes();

// The rule with this code; null if there is none.
const Rule* findRule(std::string_view code);

}  // namespace qvgraph

#endif  // QVGRAPH_CHECK_RULES_H_
