// Holds a source against json11, on any text.
#ifndef QVGRAPH_TESTS_SUPPORT_SAME_AS_JSON11_H_
#define QVGRAPH_TESTS_SUPPORT_SAME_AS_JSON11_H_

#include <string>

// How a source of `text` differs from what json11 makes of it in its mode with
// comments, or from itself; "" when it does not. Looks at
//  - whether the text is accepted;
//  - every value: its kind and what it holds, as json11 reads the whole text,
//    and as it reads the value's own part of it;
//  - keys, their places, their order, and which of several equal ones counts;
//  - comments: without them, json11 reads the same in its mode without;
//  - the place of the error: the text before it could still go on;
//  - the same text in the midst of another one.
std::string differenceFromJson11(const std::string& text);

#endif  // QVGRAPH_TESTS_SUPPORT_SAME_AS_JSON11_H_
