// The output of a process that aborts.
#ifndef QVGRAPH_TESTS_SUPPORT_ABORTS_H_
#define QVGRAPH_TESTS_SUPPORT_ABORTS_H_

#include <gtest/gtest.h>

#include <string>

// Matches the regular expression exactly. If the test runs in an emulator, the
// emulator's own message about the signal may follow.
inline auto standardErrorIs(const std::string& regex) {
    return testing::MatchesRegex(regex +
                                 "(qemu: uncaught target signal 6 \\(Aborted\\) - core dumped\n)?");
}

#endif  // QVGRAPH_TESTS_SUPPORT_ABORTS_H_
