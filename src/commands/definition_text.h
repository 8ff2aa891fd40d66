// The text side of SET, ALIAS, FUNCTION and their UN- commands: what kind of request an argument text is, and
// the definitions that a file's lines hold. Pure.
#pragma once

#include <string_view>

#include "text/cstring.h"

// What stands behind the switches of a definition command.
enum class DefinitionForm {
    All,    // nothing: show everything
    Query,  // a name or a pattern: show what matches
    Define, // "name=value", and for lists "name value"
};

// `nameEndsAtBlank` for aliases and functions, whose names hold no white space.
DefinitionForm FormOf(std::u16string_view text, bool nameEndsAtBlank);

// "SET "name=value"": the quote in front goes, and with it everything from the last quote on.
void DropDefinitionQuotes(CString& text);

// Whether a name holds one of the wildcards *, ? and [.
bool HasNamePattern(std::u16string_view name);

// Whether the text asks for a dialog ("/=").
bool AsksForDialog(std::u16string_view text, char16_t switchChar);

// The switches of SET, which stand in front only: behind the name everything belongs to the value.
struct SetSwitches {
    bool arithmetic = false;   // /A: what follows is an expression
    bool prompt = false;       // /P: what follows is "name=question"
    bool readFiles = false;    // /R
    bool keepExisting = false; // /O
    bool quiet = false;        // /N
    bool process = false;      // /E
    bool system = false;       // /S
    bool user = false;         // /U
    bool isVolatile = false;   // /V
    bool standard = false;     // /D
    CString typeSpec;          // /T:type[:description]
    CString refused;           // the first that is none of these
};
// Takes the switches off the text. /A and /P end them, and what they are for may follow directly.
SetSwitches TakeSetSwitches(CString& text, char16_t switchChar);

// Puts the definitions of a file together from its lines. Empty lines and lines that begin with ":" or ";"
// are comments; a line that ends with the escape character goes on in the next one.
class DefinitionLines {
public:
    explicit DefinitionLines(char16_t escape) : escapeChar(escape) {}

    // Takes the next line, its line end aside; true when `definition` is complete.
    bool Add(std::u16string_view line, CString& definition);
    // At the end of the input: what a last line left unfinished.
    bool Finish(CString& definition);

private:
    char16_t escapeChar;
    CString pending;
    bool continued = false;
};
