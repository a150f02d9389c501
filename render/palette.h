// The colours of pictures; part of render.
//
// They also differ in lightness, and blue, orange and yellow are distinguishable
// for the colour-blind. No meaning depends on colour only: everything in a
// colour also has a word or a shape.
#ifndef QVGRAPH_RENDER_PALETTE_H_
#define QVGRAPH_RENDER_PALETTE_H_

#include <array>

namespace qvgraph {

// A colour on a light background, on which pictures are drawn, and its
// counterpart on a dark one. All light ones differ.
struct Colour {
    const char* light;
    const char* dark;
};

constexpr Colour PAPER = {"#ffffff", "#12161c"};
constexpr Colour INK = {"#1b1f24", "#e8ecf1"};
constexpr Colour FAINT_INK = {"#57606a", "#a3afbc"};
constexpr Colour PIPE_FILL = {"#fafbfc", "#171c23"};
constexpr Colour PIPE_LINE = {"#b4bec8", "#46525f"};
constexpr Colour NODE_FILL = {"#e8f0f8", "#1f3044"};
constexpr Colour NODE_LINE = {"#3b6389", "#7aa7d3"};
constexpr Colour STREAM_LINE = {"#4d5763", "#aab5c1"};
constexpr Colour ERROR_FILL = {"#fde4da", "#47210f"};
constexpr Colour ERROR_LINE = {"#b33a00", "#ff9463"};
constexpr Colour WARNING_FILL = {"#fff4cc", "#3a3110"};
constexpr Colour WARNING_LINE = {"#7d6100", "#e8c547"};

constexpr std::array<Colour, 12> PALETTE = {PAPER,
                                            INK,
                                            FAINT_INK,
                                            PIPE_FILL,
                                            PIPE_LINE,
                                            NODE_FILL,
                                            NODE_LINE,
                                            STREAM_LINE,
                                            ERROR_FILL,
                                            ERROR_LINE,
                                            WARNING_FILL,
                                            WARNING_LINE};

}  // namespace qvgraph

#endif  // QVGRAPH_RENDER_PALETTE_H_
