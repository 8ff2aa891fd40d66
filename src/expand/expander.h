// One pass of variable expansion over one text: the work behind VariableExpansion.
//
// expander.cpp walks the text and puts values in; expander_references.cpp knows the kinds of references.
#pragma once

#include <string_view>
#include <vector>

#include "engine/state.h"
#include "expand/delayed_expansion.h"
#include "expand/expansion.h"
#include "expand/variable_names.h"
#include "expand/work_line.h"

class Expander : private KnownNames {
public:
    using View = std::u16string_view;

    Expander(View text, ExpansionWorld& theWorld, const ExpansionSettings& theSettings)
        : line(text), world(theWorld), settings(theSettings)
    {}

    bool topLevel = false;                  // the text is a whole command: its first word may name an alias
    bool inQuotes = false;                  // the text begins inside double quotes
    int startDepth = 0;                     // values that the text stands inside of already
    const Parameters* parameters = nullptr; // of a user function, in the place of the batch file's

    int Run();        // the "%" references
    int RunDelayed(); // the "!" references
    bool Changed() const { return changed; }
    View Text() { return line.All(); }

private:
    enum class Scan { Again, Past };

    // A value that was put back to be scanned: its end as a distance from the line's end, and how many
    // values it stands inside of.
    struct ValueRegion {
        std::size_t end;
        int depth;
    };

    bool SeekPercent();
    void PassQuoted(char16_t quote);
    int CountVisit();
    int ExpandReference();

    int ReadDoublePercent();
    int ReadParenthesis();
    int ReadBraces();
    int ReadCondition();
    int ReadFunction();
    int ReadArrayElement();
    bool ReadTilde(int& code);
    bool ReadParameters(int& code);
    int ReadVariable();
    bool ReadSpecialName(int& code);
    bool IsArrayElement() const;
    std::size_t FindArgumentsEnd(View rest, std::size_t open, View name) const;
    bool CurrentParameters(Parameters& current);
    bool Lookup(View name, CString& value);
    bool Exists(View name) override;
    int Modify(CString& value, View modifier);

    int CallFunction(View name, View arguments, std::size_t length, View shown);
    int InsertDelayed(View reference, std::size_t length);
    int InsertDelayedText(View reference, std::size_t length, bool& quoted);
    int Insert(View value, std::size_t length, Scan scan);
    int InsertValue(View value, std::size_t length); // scanned again unless the mask says otherwise
    int InsertLoopValue(View value, std::size_t length);
    CString Protected(View value, bool quoted) const;
    int Keep(std::size_t units);
    int ExpandNested(CString& text, bool quoted);
    int ExpandFirstWord();
    bool InFirstWord();
    int Depth() const { return regions.empty() ? startDepth : regions.back().depth; }
    int CountSteps(std::size_t steps);
    int Fail(unsigned code, View argument);

    WorkLine line;
    ExpansionWorld& world;
    const ExpansionSettings& settings;
    bool changed = false;
    bool firstWordDone = false;
    int aliasRounds = 0;
    std::size_t lastPosition = View::npos;
    std::size_t leastRest = 0; // the shortest rest seen at lastPosition
    int repeats = 0;
    std::vector<ValueRegion> regions; // innermost last
};

constexpr int deepestExpansion = 20; // expansions inside expansions

// As much of a text as an error message needs.
inline std::u16string_view Shown(std::u16string_view text) { return text.substr(0, 200); }

inline bool IsSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }
