/// @file
/// The graph-configuration parser. It reads one JSON document that describes
/// processing pipes, answers the framework's queries about it, copies options
/// into option stores, and sets up task nodes.
///
/// A configuration:
/// @code{.unparsed}
/// {                                       // every member is a pipe
///   "pipe_0": {
///     "thread_opts": {"exec_thread_num": 2},
///     "default_mode_link": "sync",        // "none" if absent
///     "executor_0": {"executor_opts": {"priority": 10}},
///     "link_0": {"depth": "int64:0x10"},  // a link is an option object
///     "node_0": {
///       "node_opts": {"node_name": "Camera", "fps": 30},
///       "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}
///     },
///     "node_1": {
///       "node_opts": {"node_name": "Display"},
///       "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12",
///                       "stream_mode_in": "remain_newest"}
///     }
///   }
/// }
/// @endcode
///
/// How a framework sets it up:
/// @code
/// QVGraphParser parser;
/// if (parser.parseConfigFile(path) != 0) return;
/// for (int pipe = 0; pipe < parser.getPipeNum(); ++pipe) {
///     for (int i = 0; i < parser.getNodeNum(pipe); ++i) {
///         int id = parser.getNodeIDByIndex(pipe, i);
///         parser.initTaskNode(graph, pipe, id, record(pipe, i));
///     }
/// }
/// @endcode
///
/// Indexes number an object's members from 0, in the byte order of their keys,
/// not in the order of the text: 'node_10' comes before 'node_2'. Ids are the
/// numbers in the keys. Queries take an index and return an id; option and node
/// operations take an id.
///
/// A number outside the range of int32_t reads as the nearest limit of that
/// range, on every machine. This applies to JSON numbers, to 'int32:' options
/// and to ids in keys.
///
/// Errors are integer codes, logged where they occur (framework/qv_log.h);
/// queries return 0 or an empty string instead. Two errors are not returned: a
/// stream without a name aborts the process, and a stream without a format
/// throws (see QVGraphParser::initTaskNode). Every function passes on what the
/// framework's functions throw, and std::bad_alloc.
///
/// Thread safety: only one thread at a time may use an instance, and a load
/// must not overlap any other call on it. Instances share no mutable state, so
/// several threads may each use their own. Values copied out of the document
/// stay valid after a reload, in any thread.
#ifndef QVGRAPH_GRAPH_QV_GRAPH_PARSER_H_
#define QVGRAPH_GRAPH_QV_GRAPH_PARSER_H_

#include <json11.hpp>
#include <string>

#include "framework/qv_meta_data.h"
#include "framework/qv_node_proxy.h"
#include "framework/qv_task_graph.h"

/// Loads one configuration, answers queries about it and sets up its nodes. A
/// new parser has no document. Copying a parser is cheap: the copy shares the
/// document, which is immutable.
class QVGraphParser {
public:
    /// @name Loading
    /// @{

    /// Replaces the document with the one in `text`: NUL-terminated JSON, in
    /// which C++ comments of both kinds are allowed. The parser keeps no pointer
    /// to `text`.
    ///
    /// Returns 0. Returns -1 if `text` contains no document: malformed or too
    /// deeply nested JSON, the JSON value null, or a null pointer. The parser
    /// then has no document; the previous one is discarded.
    ///
    /// A root that is not an object loads, and contains no pipes.
    int parseConfigText(const char* text);

    /// Loads the file at `path` as parseConfigText does, up to its first NUL.
    ///
    /// Returns -5 if the file cannot be opened or `path` is null; the current
    /// document is then unchanged. Otherwise returns what parseConfigText
    /// returns. A path that opens but has no usable size reads as empty and
    /// therefore returns -1: directories, pipes and most of /proc. Files of
    /// 2^31 - 1 bytes (2 GiB) or more also read as empty, on every machine,
    /// because a 32-bit long cannot represent larger sizes.
    int parseConfigFile(const char* path);

    /// Not supported: always returns -10 and writes nothing.
    int saveConfig(const char* path) const;

    /// Runs after every successful load. Does nothing and returns 0.
    int summary() const;

    /// Returns the document; the null value before the first load and after a
    /// load that returned -1. The reference is valid until the next load.
    const json11::Json& root() const { return mRoot; }

    /// @}

    /// @name Families of keys
    /// A member of `items` belongs to the family of `tag` if its key begins
    /// with `tag`. If `tag` is empty, all members belong to the family.
    /// @{

    /// Returns the number of members in the family; 0 if `items` is not an
    /// object. Logs one information record for every member of `items`.
    int getItemNum(json11::Json items, std::string tag) const;

    /// Returns the id of the family's member at `index`: the decimal number
    /// that follows the tag in its key; blanks and a sign may precede the
    /// number. Returns 0 if no number follows or there is no such member, and,
    /// with an error record, if `items` is not an object.
    int getItemIDByIndex(json11::Json items, int index, std::string tag) const;

    /// Returns the full key of the family's member at `index`. Returns an empty
    /// string if there is no such member, and, with an error record, if `items`
    /// is not an object.
    std::string getItemNameByIndex(json11::Json items, int index, std::string tag) const;

    /// @}

    /// @name Queries
    /// `pipe` is an index from 0 to getPipeNum() - 1 and selects the root's
    /// member `pipe_<pipe>`. A missing pipe reads as an empty one.
    /// @{

    /// Returns the number of members of the root, whatever their keys; 0 if the
    /// root is not an object.
    int getPipeNum() const;

    /// Returns the number of nodes of the pipe.
    int getNodeNum(int pipe) const;
    /// Returns the number of executors of the pipe.
    int getExecNum(int pipe) const;
    /// Returns the number of links of the pipe.
    int getLinkNum(int pipe) const;

    /// Returns the id of the node at `index`, from 0 to getNodeNum(pipe) - 1.
    /// Returns 0 for any other index, and, with an error record, if the pipe is
    /// missing or not an object: query the number of nodes first.
    int getNodeIDByIndex(int pipe, int index) const;
    /// As getNodeIDByIndex, for an executor.
    int getExecIDByIndex(int pipe, int index) const;
    /// As getNodeIDByIndex, for a link.
    int getLinkIDByIndex(int pipe, int index) const;

    /// Returns the number of threads that the pipe requests for its executors:
    /// the first number among the members of "thread_opts" whose key is
    /// "exec_thread_num" in any letter case, without its fraction. Returns 0 if
    /// there is none; a configuration may also request 0 or fewer threads.
    int getThreadNum(int pipe) const;

    /// Returns the pipe's "default_mode_link"; "none" if it is missing, empty
    /// or not a string. Logs one information record.
    std::string getDefaultLinkMode(int pipe) const;

    /// @}

    /// @name Options
    /// @{

    /// Stores one option under `key` in `meta`, converted according to its JSON
    /// type:
    /// - a number: setInt32, without the fraction
    /// - `"int32:<v>"`: setInt32; v is decimal
    /// - `"int64:<v>"`: setInt64; v is decimal, hexadecimal (0x) or octal (0)
    /// - `"float:<v>"`: setFloat
    /// - `"double:<v>"`: also setFloat; the log record shows the full value
    /// - any other string: setCString with the complete string
    /// - any other value: nothing is stored
    ///
    /// If v is not a number, it reads as 0; v ends at a second ':'. Strings end
    /// at their first NUL. Allocates no memory.
    ///
    /// Returns 0. Returns -68, with an error record and nothing stored, for a
    /// string of more than 127 bytes.
    ///
    /// REQUIRES: `meta` and `key` are not null.
    int parseOptions(QvMetaData* meta, const char* key, json11::Json value) const;

    /// Stores every member of the object `opts` in `meta` with parseOptions, in
    /// key order. Skips a string that is too long.
    ///
    /// Returns 0. Stores nothing if `opts` is empty or not an object.
    ///
    /// REQUIRES: `meta` is not null, unless nothing is stored.
    int syncOptions(QvMetaData* meta, json11::Json opts) const;

    /// Stores the options of the executor `executor_<execId>` (its
    /// "executor_opts") of a pipe in `meta`, as syncOptions does. Returns 0,
    /// also if the pipe or the executor does not exist.
    int syncExecOptions(QvMetaData* meta, int pipe, int execId) const;

    /// Stores the options of the link `link_<linkId>` (the link object itself)
    /// of a pipe in `meta`, as syncOptions does. Returns 0, also if the pipe or
    /// the link does not exist.
    int syncLinkOptions(QvMetaData* meta, int pipe, int linkId) const;

    /// @}

    /// @name Node set-up
    /// @{

    /// Sets up the node `node_<nodeId>` of a pipe, in this order: creates it
    /// through the node proxy; fills its option store from "node_opts",
    /// "stream_opts", "node_opts_extra" and "stream_opts_extra"; registers its
    /// streams with `config` and binds them to its stream managers, inputs
    /// first; calls its QVTaskNodeBase::initialize.
    ///
    /// If a node has exactly one input manager, the input's name is the option
    /// "stream_input" and its format the option "stream_fmt_in". If it has
    /// several, the name and format of the k-th input are the options under the
    /// k-th key of "stream_opts" that begins with "stream_input_" and the k-th
    /// that begins with "stream_fmt_in_". Outputs work the same way, with
    /// "stream_output" and "stream_fmt_out". If the option "stream_mode_in" is
    /// "remain_newest", all inputs keep only the latest data.
    ///
    /// `info` receives the node and its managers. The caller owns the record
    /// and its contents and must pass a new record for each node. Nothing is
    /// undone on failure: the caller frees what `info` holds, whatever this
    /// function returns or throws.
    ///
    /// Returns
    /// - 0: the node is set up, or `config` refused one of its streams; the
    ///   refusal is logged as an error and ends the set-up, so that
    ///   QVTaskNodeBase::initialize is not called
    /// - -1: the node proxy created no node, or one without stream managers
    /// - -2: `config` or `info` is null
    ///
    /// Aborts the process, with an error record, if the node's option store has
    /// no string under the key of a stream's name. Throws std::logic_error with
    /// the message "basic_string::_M_construct null not valid" if a stream has
    /// no format.
    int initTaskNode(QVTaskGraphConfig* config, int pipe, int nodeId, _QVNodeInfo* info) const;

    /// @}

private:
    json11::Json mRoot;
};

#endif  // QVGRAPH_GRAPH_QV_GRAPH_PARSER_H_
