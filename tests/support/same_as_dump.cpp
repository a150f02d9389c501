#include "tests/support/same_as_dump.h"

#include <algorithm>
#include <cstring>

#include "graph/qv_graph_parser.h"
#include "host/qv_host_log.h"
#include "host/qv_host_meta_data.h"

std::string differenceFromDump(const json11::Json& value) {
    std::string recorded = "no record";
    const QVLogScope scope(QV_LOG_INFO, [&](const QVLogRecord& record) {
        if (strstr(record.format, "option: key = ") != nullptr) {
            recorded = record.message;
        }
    });
    QVHostMetaData store;
    QVGraphParser().syncOptions(&store, json11::Json::object{{"key", value}});

    std::string text = value.dump();
    text.resize(std::max<size_t>(text.size(), 16), ' ');
    const std::string expected =
        QV_LOG_BLUE "option: key = key             , opt = " + text + QV_LOG_PLAIN;
    return recorded == expected ? "" : recorded + ", but dump returns " + expected;
}
