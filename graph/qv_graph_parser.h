// The graph-configuration parser: reads one JSON document that describes
// processing pipes, answers the framework's questions about it, copies options
// into option stores, and sets task nodes up.
//
//   {                                       // a root of nothing but pipes
//     "pipe_0": {
//       "thread_opts": {"exec_thread_num": 2},
//       "default_mode_link": "sync",        // "none" when absent
//       "executor_0": {"executor_opts": {"priority": 10}},
//       "link_0": {"depth": "int64:0x10"},  // a link is an option object
//       "node_0": {
//         "node_opts": {"node_name": "Camera", "fps": 30},
//         "stream_opts": {"stream_output": "raw", "stream_fmt_out": "nv12"}
//       },
//       "node_1": {
//         "node_opts": {"node_name": "Display"},
//         "stream_opts": {"stream_input": "raw", "stream_fmt_in": "nv12",
//                         "stream_mode_in": "remain_newest"}
//       }
//     }
//   }
//
// How a framework sets such a configuration up:
//
//   QVGraphParser parser;
//   if (parser.parseConfigFile(path) != 0) return;
//   for (int pipe = 0; pipe < parser.getPipeNum(); ++pipe) {
//       for (int i = 0; i < parser.getNodeNum(pipe); ++i) {
//           int id = parser.getNodeIDByIndex(pipe, i);
//           parser.initTaskNode(graph, pipe, id, record(pipe, i));
//       }
//   }
//
// Indexes count an object's members in the byte order of their keys, never in
// the order of the text: 'node_10' comes before 'node_2'. Ids are the numbers
// in the keys. Queries take an index and return an id; option and node
// operations take an id.
//
// Numbers outside the range of int32_t read as the nearest end of that range,
// on every machine: JSON numbers, 'int32:' options and ids in keys alike.
//
// Errors are integer codes, logged where they happen (framework/qv_log.h);
// queries return 0 or empty strings instead. Two conditions are not returned:
// a node without a stream name aborts the process, and one without a stream
// format throws (see initTaskNode). Every function passes on what the
// framework's functions throw, and std::bad_alloc.
//
// Thread safety: one thread at a time uses an instance, and a load must not
// overlap any other call on it. Instances do not share anything that changes:
// several threads may each use their own. Values copied out of the document
// stay valid after a reload, in any thread.
#ifndef QVGRAPH_GRAPH_QV_GRAPH_PARSER_H_
#define QVGRAPH_GRAPH_QV_GRAPH_PARSER_H_

#include <json11.hpp>
#include <string>

#include "framework/qv_meta_data.h"
#include "framework/qv_node_proxy.h"
#include "framework/qv_task_graph.h"

// Copying a parser is cheap and shares the document, which never changes.
class QVGraphParser {
public:
    // ---- Loading -----------------------------------------------------------

    // Loads the NUL-terminated `text`, JSON with // and /* */ comments, in
    // place of the present document. Copies what it needs of the text.
    //
    // Returns 0, or -1 when there is no document in it: malformed or too
    // deeply nested JSON, the text "null", or a null pointer. The parser is
    // then left without a document: the previous one is gone either way.
    //
    // A root that is not an object loads, and holds no pipes.
    int parseConfigText(const char* text);

    // Loads the file at `path` as parseConfigText does, up to its first NUL.
    //
    // Returns -5 when the file cannot be opened (a null path included), which
    // leaves the present document as it was; otherwise what parseConfigText
    // returns. What opens but has no size of its own reads as empty, and so
    // gives -1: directories, pipes, most of /proc. So do files of 2 GiB or more,
    // on every machine: where long has 32 bits they have no size either.
    int parseConfigFile(const char* path);

    // Not supported: returns -10, whatever the argument, and writes nothing.
    int saveConfig(const char* path) const;

    // A hook that runs after every successful load. Does nothing; returns 0.
    int summary() const;

    // The document; the null value before the first load and after one that
    // returned -1. The reference is valid until the next load.
    const json11::Json& root() const { return mRoot; }

    // ---- Families of keys --------------------------------------------------
    //
    // A member of `items` belongs to the family of `tag` when its key begins
    // with it. All members do where the tag is empty.

    // Returns how many members belong to the family; 0 when `items` is no
    // object. Logs one information record for every member of `items`.
    int getItemNum(json11::Json items, std::string tag) const;

    // Returns the id of the family's member at `index`: the decimal number
    // behind the tag, with blanks and a sign before it allowed. Returns 0 when
    // no number stands there, when there is no such member, and, with an error
    // record, when `items` is no object.
    int getItemIDByIndex(json11::Json items, int index, std::string tag) const;

    // Returns the whole key of the family's member at `index`. Returns an
    // empty string when there is none, with an error record when `items` is no
    // object.
    std::string getItemNameByIndex(json11::Json items, int index, std::string tag) const;

    // ---- Queries -----------------------------------------------------------
    //
    // `pipe` is an index from 0 to getPipeNum() - 1 and stands for the root's
    // member 'pipe_<pipe>'. A pipe that is not there reads as an empty one.

    // Returns how many members the root has, whatever their keys; 0 when it is
    // no object.
    int getPipeNum() const;

    // Return how many nodes, executors and links the pipe has.
    int getNodeNum(int pipe) const;
    int getExecNum(int pipe) const;
    int getLinkNum(int pipe) const;

    // Return the id of the node, executor or link at `index`, from 0 to the
    // number of them minus 1. Return 0 for any other index, and, with an error
    // record, when there is no such pipe: ask for the number first.
    int getNodeIDByIndex(int pipe, int index) const;
    int getExecIDByIndex(int pipe, int index) const;
    int getLinkIDByIndex(int pipe, int index) const;

    // Returns how many threads the pipe's executors want: the first number
    // among the members of "thread_opts" that are named "exec_thread_num" in
    // any letter case, without its fraction. Returns 0 when there is none; a
    // configuration may also ask for 0 or fewer.
    int getThreadNum(int pipe) const;

    // Returns the pipe's "default_mode_link", or "none" when that is missing,
    // empty or no string. Logs one information record.
    std::string getDefaultLinkMode(int pipe) const;

    // ---- Options -----------------------------------------------------------

    // Stores one option under `key` in `meta`, converted by its JSON type:
    //
    //   number        setInt32, without the fraction
    //   "int32:<v>"   setInt32; v is decimal
    //   "int64:<v>"   setInt64; v is decimal, 0x hexadecimal or 0 octal
    //   "float:<v>"   setFloat
    //   "double:<v>"  setFloat too; the record shows the value as it was
    //   other string  setCString with the whole string
    //   anything else nothing
    //
    // What is no number reads as 0; v ends at a second ':'. Strings end at
    // their first NUL. Allocates no memory.
    //
    // Returns 0, or -68, with an error record and nothing stored, for a string
    // of more than 127 bytes. REQUIRES: `meta` and `key` are not null.
    int parseOptions(QvMetaData* meta, const char* key, json11::Json value) const;

    // Stores every member of the object `opts` in `meta` through parseOptions,
    // in the order of their keys. An option that is too long is left out.
    //
    // Returns 0. Stores nothing when `opts` is no object or empty; `meta` may
    // be null only then.
    int syncOptions(QvMetaData* meta, json11::Json opts) const;

    // Store the options of the executor 'executor_<execId>' (its
    // "executor_opts") or of the link 'link_<linkId>' (the link object itself)
    // of a pipe in `meta`, as syncOptions does. Return 0, also when there is
    // no such pipe, executor or link.
    int syncExecOptions(QvMetaData* meta, int pipe, int execId) const;
    int syncLinkOptions(QvMetaData* meta, int pipe, int linkId) const;

    // ---- Node set-up -------------------------------------------------------

    // Creates the node 'node_<nodeId>' of a pipe through the node proxy, fills
    // its option store from "node_opts", "stream_opts", "node_opts_extra" and
    // "stream_opts_extra", in this order, registers its streams with `config`
    // and binds them to its stream managers, inputs first, and initialises it.
    //
    // A node's only input has its name under "stream_input" and its format
    // under "stream_fmt_in"; of several inputs, the k-th has them under the
    // k-th keys of "stream_opts" that begin with "stream_input_" and with
    // "stream_fmt_in_". "stream_mode_in" set to "remain_newest" makes all
    // inputs keep only the newest data. Outputs are named likewise.
    //
    // `info` is the caller's, as new; it receives the node and its managers,
    // which are the caller's too. Nothing is undone on failure: the caller
    // frees what `info` holds whatever is returned or thrown.
    //
    // Returns
    //    0  the node is set up; or `config` refused one of its streams, which
    //       is logged as an error: what comes after that stream is skipped,
    //       QVTaskNodeBase::initialize included
    //   -1  the node proxy created no node, or one without stream managers
    //   -2  `config` or `info` is null
    //
    // Aborts the process, with an error record, when a stream's name is not
    // in the node's store as a string. Throws std::logic_error, with the text
    // "basic_string::_M_construct null not valid", when a stream's format is
    // not there.
    int initTaskNode(QVTaskGraphConfig* config, int pipe, int nodeId, _QVNodeInfo* info) const;

private:
    json11::Json mRoot;
};

#endif  // QVGRAPH_GRAPH_QV_GRAPH_PARSER_H_
