#ifndef QVGRAPH_BENCH_DESK_GRAPH_H_
#define QVGRAPH_BENCH_DESK_GRAPH_H_

#include "bench/live_graph.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"

using DeskGraph = LiveGraph<QVHostTaskGraph, QVHostMetaData, QVNodeOwner>;

#endif  // QVGRAPH_BENCH_DESK_GRAPH_H_
