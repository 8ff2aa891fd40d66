// The colours that names of files are listed in. Pure.
//
// A setting is a list of rules parted by ";", each "words:color". A word is an extension or, with a period in
// it, a whole name, both with wildcards; or one of the names of attributes in name_colors.cpp ("dirs",
// "hidden"). A color is "foreground" or "foreground on background". The first rule with a word that fits
// counts, and a rule without a proper color never does.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

class NameColors {
public:
    NameColors() = default;
    explicit NameColors(std::u16string_view setting);

    // The colours (background x 16 + foreground) of a file, of which a rule may leave the background to the
    // screen; nothing when no rule fits.
    std::optional<unsigned> Of(std::u16string_view name, std::uint32_t attributes, unsigned screen) const;
    bool Empty() const { return rules.empty(); }

private:
    struct Rule {
        std::vector<CString> words;
        unsigned color = 0;
        bool background = false; // it has its own
    };
    static bool Fits(const CString& word, std::u16string_view name, std::uint32_t attributes);

    std::vector<Rule> rules;
};
