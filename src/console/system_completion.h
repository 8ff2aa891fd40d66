// Completion with the shell's own files, names and settings, for the line editor.
#pragma once

#include "console/completion_source.h"

class SystemCompletion : public CompletionSource {
public:
    CompletionOffer Offer(std::u16string_view line, std::size_t cursor, CompletionKind kind) override;
};
