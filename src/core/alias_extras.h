// Aliases in other places than the first word of a command: names of directories, of prompts and of keys.
#pragma once

#include <optional>
#include <string_view>

#include "text/cstring.h"

// A directory as CD and its kin are given it: "name:rest" becomes the value of the alias "name:", or "name",
// with the rest behind it. One letter before the colon is a drive. 0 with the answer in `result`, which is
// the text itself where no alias is named; 2 when the aliases go round in a circle, which is reported.
int CDAliases(std::u16string_view text, CString& result);

// The pattern of a prompt: the name of an alias, and nothing else, stands for the alias's value. As above.
int PromptAliases(std::u16string_view text, CString& result);

// What "alias @key=text" binds to a key: the text comes into the line at the cursor. With "@@key" the line is
// not touched; the text runs at once and is not shown.
struct KeyAlias {
    CString text;
    bool runs = false;
};

// `key` in any spelling that KeyName knows.
std::optional<KeyAlias> FindKeyAlias(std::u16string_view key);

// The name "@key" or "@@key" of an alias in its one spelling; empty when it names no key that may be bound.
// Keys that just type a character may not.
CString KeyAliasName(std::u16string_view name);
inline bool IsKeyAlias(std::u16string_view name) { return name.starts_with(u'@'); }
