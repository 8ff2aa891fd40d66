// Text of which parts have colours of their own on a console; elsewhere it is text like any other.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct PaintedText {
    struct Span {
        std::size_t start = 0;
        std::size_t length = 0;
        unsigned attributes = 0; // background x 16 + foreground
    };
    CString text;
    std::vector<Span> spans; // in their order

    PaintedText& Append(std::u16string_view more, std::optional<unsigned> attributes = {});
    PaintedText& Append(const PaintedText& more);
    void Clear();
};

// To standard output; false when it refused. What is not painted has the colours that are set by now.
bool Print(const PaintedText& painted);
