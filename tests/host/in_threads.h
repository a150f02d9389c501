// Runs the same work in several threads at once.
#ifndef QVGRAPH_TESTS_HOST_IN_THREADS_H_
#define QVGRAPH_TESTS_HOST_IN_THREADS_H_

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

// Calls `work(number)` in `count` threads, numbered from 0, which start
// together. Returns after all of them have ended.
template <typename Work>
void inThreads(int count, const Work& work) {
    std::atomic<int> missing{count};
    std::vector<std::thread> threads;
    threads.reserve(static_cast<size_t>(count));
    for (int number = 0; number < count; ++number) {
        threads.emplace_back([&missing, &work, number] {
            --missing;
            while (missing > 0) {
                std::this_thread::yield();
            }
            work(number);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

#endif  // QVGRAPH_TESTS_HOST_IN_THREADS_H_
