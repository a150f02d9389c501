// What a process that aborts leaves on standard error.
#ifndef QVGRAPH_TESTS_SUPPORT_ABORTS_H_
#define QVGRAPH_TESTS_SUPPORT_ABORTS_H_

#include <gtest/gtest.h>

#include <string>

// Matches exactly what the regular expression does; where the test runs in an
// emulator, with what that has to say of the signal.
inline auto standardErrorIs(const std::string& regex) {
    return testing::MatchesRegex(regex +
                                 "(qemu: uncaught target signal 6 \\(Aborted\\) - core dumped\n)?");
}

#endif  // QVGRAPH_TESTS_SUPPORT_ABORTS_H_
