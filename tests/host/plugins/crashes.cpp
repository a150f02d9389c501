// A class that crashes as its options request: "signal" raises the signal,
// "address" writes to the address, "deep" recurses without end.
#include <csignal>
#include <vector>

#include "host/qv_node_class.h"

namespace {

// The compiler cannot turn this into a loop: the array is used after the call.
int useUp(int depth) {
    volatile int array[1024] = {depth};
    return depth < 0 ? 0 : useUp(depth + 1) + array[0];
}

class Crash : public QVTaskNodeBase {
public:
    int initialize(int /*nodeId*/,
                   _QVTaskNodeInfo* /*info*/,
                   const std::vector<QVInputStreamManager*>& /*inputs*/,
                   const std::vector<QVOutputStreamManager*>& /*outputs*/) override {
        int32_t number = 0;
        if (mOptions->findInt32("signal", &number) != 0) {
            raise(number);
        }
        int64_t address = 0;
        if (mOptions->findInt64("address", &address) != 0) {
            *reinterpret_cast<volatile int*>(static_cast<uintptr_t>(address)) = 1;
        }
        if (mOptions->findInt32("deep", &number) != 0) {
            return useUp(number);
        }
        return 0;
    }
};

QVTaskNodeBase* createCrash(const _QVNodeInfo* /*info*/) {
    return new Crash;
}

QVTaskNodeBase* createNone(const _QVNodeInfo* /*info*/) {
    raise(SIGFPE);
    return nullptr;
}

}  // namespace

int qvgraph_register_nodes(QVNodeClassRegistry* registry) {
    QVNodeClass crash;
    crash.name = "Crash";
    crash.create = createCrash;
    registry->registerClass(crash);
    crash.name = "CrashAtOnce";
    crash.create = createNone;
    registry->registerClass(crash);
    crash.name = "\xc3\x89t\xc3\xa9\n";
    crash.create = createNone;
    return registry->registerClass(crash);
}
