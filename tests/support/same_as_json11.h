// Compares a source with json11, on any text.
#ifndef QVGRAPH_TESTS_SUPPORT_SAME_AS_JSON11_H_
#define QVGRAPH_TESTS_SUPPORT_SAME_AS_JSON11_H_

#include <string>

// The difference between a source of `text` and the document that json11 parses in
// its mode with comments; empty if there is none. Compares
//  - whether the text is accepted;
//  - the kind and content of every value: as json11 parses the complete text, and as
//    it parses only the span of the value;
//  - keys, their spans, their order, and which of several equal keys wins;
//  - comments: without them, json11 parses the same in its mode without comments;
//  - the location of the error: the text before it has a valid continuation;
//  - the same text inside another text.
std::string differenceFromJson11(const std::string& text);

#endif  // QVGRAPH_TESTS_SUPPORT_SAME_AS_JSON11_H_
