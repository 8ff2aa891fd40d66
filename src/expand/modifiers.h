// The modifiers of a "%name:...%" reference: substring (":~2,-1") and replacement (":old=new", ":*old=new").
#pragma once

#include <string_view>

#include "text/cstring.h"

// Applies the text between ":" and the closing "%" to the value, in place. False when the search text is
// empty or the result would pass `limit` units; the value is then unchanged.
bool ApplyModifier(CString& value, std::u16string_view modifier, std::size_t limit);
