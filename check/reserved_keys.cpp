#include "check/reserved_keys.h"

#include <iterator>

namespace qvgraph {

namespace {

const ReservedKey TABLE[] = {
    {Level::Root,
     "pipe_",
     true,
     ValueKind::Object,
     "A pipe with its nodes, executors and links; pipes are numbered from 0 without gaps."},

    {Level::Pipe,
     "thread_opts",
     false,
     ValueKind::Object,
     "The threading options of the pipe's executors."},
    {Level::Pipe,
     "default_mode_link",
     false,
     ValueKind::String,
     "The default link mode of the pipe; \"none\" if it is missing or empty."},
    {Level::Pipe,
     "executor_",
     true,
     ValueKind::Object,
     "An executor of the pipe; the number in its key is its id."},
    {Level::Pipe,
     "link_",
     true,
     ValueKind::Object,
     "A link of the pipe; the number in its key is its id, and all of its members are options."},
    {Level::Pipe,
     "node_",
     true,
     ValueKind::Object,
     "A task node of the pipe; the number in its key is its id."},

    {Level::ThreadOptions,
     "exec_thread_num",
     false,
     ValueKind::Number,
     "The number of threads that the pipe's executors request, a whole number; the key may be in "
     "any letter case."},

    {Level::Executor, "executor_opts", false, ValueKind::Object, "The executor's options."},

    {Level::Node, "node_opts", false, ValueKind::Object, "The node's options, including its name."},
    {Level::Node,
     "stream_opts",
     false,
     ValueKind::Object,
     "The names, formats and modes of the node's streams, and further options."},
    {Level::Node,
     "node_opts_extra",
     false,
     ValueKind::Object,
     "Further options of the node, which override \"node_opts\" and \"stream_opts\"."},
    {Level::Node,
     "stream_opts_extra",
     false,
     ValueKind::Object,
     "Further options of the node's streams, which override all others; it cannot declare "
     "streams."},

    {Level::NodeOptions,
     "node_name",
     false,
     ValueKind::String,
     "The name by which the node is created: its class, optionally followed by '#' and a label."},

    {Level::StreamOptions,
     "stream_input",
     false,
     ValueKind::String,
     "The name of the input stream, if the node has exactly one."},
    {Level::StreamOptions,
     "stream_fmt_in",
     false,
     ValueKind::String,
     "The format of the input stream, if the node has exactly one."},
    {Level::StreamOptions,
     "stream_input_",
     true,
     ValueKind::String,
     "The name of an input stream, if the node has several; inputs are numbered in the byte "
     "order of their keys."},
    {Level::StreamOptions,
     "stream_fmt_in_",
     true,
     ValueKind::String,
     "The format of an input stream, if the node has several; the k-th format in the byte "
     "order of keys belongs to the k-th name."},
    {Level::StreamOptions,
     "stream_mode_in",
     false,
     ValueKind::String,
     "The mode of all inputs: \"remain_newest\" keeps only the latest item."},
    {Level::StreamOptions,
     "stream_output",
     false,
     ValueKind::String,
     "The name of the output stream, if the node has exactly one."},
    {Level::StreamOptions,
     "stream_fmt_out",
     false,
     ValueKind::String,
     "The format of the output stream, if the node has exactly one."},
    {Level::StreamOptions,
     "stream_output_",
     true,
     ValueKind::String,
     "The name of an output stream, if the node has several; outputs are numbered in the byte "
     "order of their keys."},
    {Level::StreamOptions,
     "stream_fmt_out_",
     true,
     ValueKind::String,
     "The format of an output stream, if the node has several; the k-th format in the byte "
     "order of keys belongs to the k-th name."},
};

}  // namespace

const char* toText(Level level) {
    switch (level) {
        case Level::Root:
            return "the root";
        case Level::Pipe:
            return "a pipe";
        case Level::ThreadOptions:
            return "\"thread_opts\"";
        case Level::Executor:
            return "an executor";
        case Level::ExecutorOptions:
            return "\"executor_opts\"";
        case Level::Link:
            return "a link";
        case Level::Node:
            return "a node";
        case Level::NodeOptions:
            return "\"node_opts\"";
        case Level::StreamOptions:
            return "\"stream_opts\"";
        case Level::ExtraOptions:
            return "an extra option object";
    }
    return "";
}

const std::vector<ReservedKey>& reservedKeys() {
    static const std::vector<ReservedKey> KEYS(std::begin(TABLE), std::end(TABLE));
    return KEYS;
}

}  // namespace qvgraph
