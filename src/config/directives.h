// The directive table: everything the shell knows about each of its settings.
//
// One static row drives reading, resetting, showing, saving and inheriting a setting. To add a setting, add
// its field to engine/inifile.h and its row here, at the same place in the order, and its line to
// docs/settings.md. The index of a setting is its row number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/inifile.h"
#include "text/cstring.h"

enum class DirectiveType : std::uint32_t {
    Character,
    Signed,
    Unsigned,
    Choice,
    Color,
    String,
    Path,
    Protected, // a password: never shown
    Include
};

struct SignedRange {
    std::int32_t minimum, maximum;
};
struct UnsignedRange {
    std::uint32_t minimum, maximum;
};
struct ChoiceList {
    std::uint32_t count;
    std::uint32_t flags;
    const char16_t* const* names;
};

// Validators of the character type: lowest code x 256 + highest code, 0 for no check.
// Validators of the path type:
namespace path_check {
constexpr std::uint32_t none = 0x4000;          // any text
constexpr std::uint32_t directoryPart = 0x8000; // only the directory in front of the name must exist
} // namespace path_check

// Page of the options dialog that a setting stands on.
enum class OptionsPage : std::uint16_t {
    None, // not in the dialog
    Startup,
    Windows,
    Editing,
    History,
    Completion,
    Directories,
    Syntax,
    Commands,
    Scripting,
    Logging,
    Colors,
    Debugger,
    Internet,
    Cloud
};
enum class ControlKind : std::uint16_t { None, NumericEdit, Text, CheckBox, Color, DropDown };

struct Directive {
    static constexpr std::uint32_t typeMask = 0x7F;
    static constexpr std::uint32_t startupOnly = 0x80; // refused once the shell runs

    union Validator {
        const SignedRange* signedRange;
        const UnsignedRange* unsignedRange;
        const ChoiceList* choices;
        std::uint32_t word;

        constexpr Validator(const SignedRange* range) : signedRange(range) {}
        constexpr Validator(const UnsignedRange* range) : unsignedRange(range) {}
        constexpr Validator(const ChoiceList* list) : choices(list) {}
        constexpr Validator(std::uint32_t value) : word(value) {}
    };
    // Which member counts follows from the type; the kinds that share a C++ type share a member.
    union Field {
        SettingCharacter INIFILE::*character;
        std::int32_t INIFILE::*number; // signed numbers and choices
        std::uint32_t INIFILE::*count; // unsigned numbers and colours
        SettingText INIFILE::*text;    // strings, paths and passwords; null for Include

        constexpr Field(SettingCharacter INIFILE::*member) : character(member) {}
        constexpr Field(std::int32_t INIFILE::*member) : number(member) {}
        constexpr Field(std::uint32_t INIFILE::*member) : count(member) {}
        constexpr Field(SettingText INIFILE::*member) : text(member) {}
    };

    const char16_t* name;
    std::uint32_t typeWord; // DirectiveType and startupOnly
    std::uint32_t standard; // default: code, number, choice index or colour; 0 for texts
    Validator validator;
    Field field;
    OptionsPage page;
    ControlKind control;
    std::uint16_t controlEntries; // of a drop-down list
    std::uint16_t controlId;

    constexpr DirectiveType Type() const { return static_cast<DirectiveType>(typeWord & typeMask); }
    constexpr bool IsText() const // holds a string that the config floor owns
    {
        return Type() == DirectiveType::String || Type() == DirectiveType::Path ||
               Type() == DirectiveType::Protected;
    }
};

constexpr std::size_t nDirectives = 248;
extern const std::array<Directive, nDirectives> aDirectives;

// The row of that name, without regard to case; -1 when there is none.
int FindDirective(std::u16string_view name);

// The name of the setting's current choice, null when the index lies outside the list.
const char16_t* ChoiceName(const Directive& directive, SettingChoice index);
