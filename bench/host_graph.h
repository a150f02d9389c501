#ifndef QVGRAPH_BENCH_HOST_GRAPH_H_
#define QVGRAPH_BENCH_HOST_GRAPH_H_

#include "bench/live_graph.h"
#include "host/qv_host_meta_data.h"
#include "host/qv_host_task_graph.h"
#include "host/qv_node_owner.h"

using HostGraph = LiveGraph<QVHostTaskGraph, QVHostMetaData, QVNodeOwner>;

#endif  // QVGRAPH_BENCH_HOST_GRAPH_H_
