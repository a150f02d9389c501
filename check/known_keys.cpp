#include "check/known_keys.h"

#include <iterator>

namespace qvgraph {

namespace {

const KnownKey TABLE[] = {
    {Level::Root,
     "pipe_",
     true,
     ValueKind::Object,
     "A pipe, with its nodes, executors and links; pipes are numbered from 0 without gaps."},

    {Level::Pipe,
     "thread_opts",
     false,
     ValueKind::Object,
     "How the executors of the pipe are threaded."},
    {Level::Pipe,
     "default_mode_link",
     false,
     ValueKind::String,
     "The default link mode of the pipe; \"none\" where it is missing or empty."},
    {Level::Pipe,
     "executor_",
     true,
     ValueKind::Object,
     "An executor of the pipe; the number in its key is its id."},
    {Level::Pipe,
     "link_",
     true,
     ValueKind::Object,
     "A link of the pipe; the number in its key is its id, and all its members are options."},
    {Level::Pipe,
     "node_",
     true,
     ValueKind::Object,
     "A task node of the pipe; the number in its key is its id."},

    {Level::ThreadOptions,
     "exec_thread_num",
     false,
     ValueKind::Number,
     "How many threads the pipe's executors want, a whole number; the key may be in any letter "
     "case."},

    {Level::Executor, "executor_opts", false, ValueKind::Object, "The executor's options."},

    {Level::Node,
     "node_opts",
     false,
     ValueKind::Object,
     "The node's options, its name among them."},
    {Level::Node,
     "stream_opts",
     false,
     ValueKind::Object,
     "The names, formats and modes of the node's streams, and options beside them."},
    {Level::Node,
     "node_opts_extra",
     false,
     ValueKind::Object,
     "Further options of the node, which win over \"node_opts\" and \"stream_opts\"."},
    {Level::Node,
     "stream_opts_extra",
     false,
     ValueKind::Object,
     "Further options of the node's streams, which win over all others; no stream is declared "
     "here."},

    {Level::NodeOptions,
     "node_name",
     false,
     ValueKind::String,
     "The node's name, by which it is made: its class, and behind a '#' a label of its own."},

    {Level::StreamOptions,
     "stream_input",
     false,
     ValueKind::String,
     "The name of the input stream, where the node has exactly one."},
    {Level::StreamOptions,
     "stream_fmt_in",
     false,
     ValueKind::String,
     "The format of the input stream, where the node has exactly one."},
    {Level::StreamOptions,
     "stream_input_",
     true,
     ValueKind::String,
     "The name of an input stream, where the node has several; they count in the byte order of "
     "their keys."},
    {Level::StreamOptions,
     "stream_fmt_in_",
     true,
     ValueKind::String,
     "The format of an input stream, where the node has several; the k-th format in the byte "
     "order of keys goes with the k-th name."},
    {Level::StreamOptions,
     "stream_mode_in",
     false,
     ValueKind::String,
     "The mode of every input: \"remain_newest\" keeps the newest item only."},
    {Level::StreamOptions,
     "stream_output",
     false,
     ValueKind::String,
     "The name of the output stream, where the node has exactly one."},
    {Level::StreamOptions,
     "stream_fmt_out",
     false,
     ValueKind::String,
     "The format of the output stream, where the node has exactly one."},
    {Level::StreamOptions,
     "stream_output_",
     true,
     ValueKind::String,
     "The name of an output stream, where the node has several; they count in the byte order of "
     "their keys."},
    {Level::StreamOptions,
     "stream_fmt_out_",
     true,
     ValueKind::String,
     "The format of an output stream, where the node has several; the k-th format in the byte "
     "order of keys goes with the k-th name."},
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

const std::vector<KnownKey>& knownKeys() {
    static const std::vector<KnownKey> KEYS(std::begin(TABLE), std::end(TABLE));
    return KEYS;
}

}  // namespace qvgraph
