#include "core/alias_extras.h"

#include "config/key_names.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr int deepestNesting = 16;

// Applies `expand` until it answers false.
template <typename Expand> int ExpandRepeatedly(std::u16string_view text, CString& result, Expand expand)
{
    result = text;
    if ((aGlobals.expansionMask & expansion_mask::noAliases) != 0)
        return result::success;
    for (int nesting = 0; expand(result); ++nesting) {
        if (nesting == deepestNesting)
            return MVError(errors::aliasLoop, text);
        if ((aGlobals.expansionMask & expansion_mask::noNestedAliases) != 0)
            break;
    }
    return result::success;
}

bool ExpandDirectory(CString& directory)
{
    const std::size_t colon = directory.Find(u':');
    if (colon == CString::npos || colon < 2 || directory.view().substr(colon + 1, 2) == u"//")
        return false;
    CString value;
    if (!GetAlias(directory.Substr(0, colon + 1), value) && !GetAlias(directory.Substr(0, colon), value))
        return false;
    value = WithoutQuotes(value.Trim());
    CString rest = directory.Substr(colon + 1);
    rest.TrimLeft(u"\\/");
    directory = rest.empty() ? value : JoinPath(value, rest);
    return true;
}

bool ExpandPattern(CString& pattern)
{
    CString name(pattern);
    CString value;
    if (name.Trim().empty() || !GetAlias(name, value))
        return false;
    pattern = value;
    return true;
}

} // namespace

int CDAliases(std::u16string_view text, CString& result)
{
    return ExpandRepeatedly(text, result, ExpandDirectory);
}

int PromptAliases(std::u16string_view text, CString& result)
{
    return ExpandRepeatedly(text, result, ExpandPattern);
}

std::optional<KeyAlias> FindKeyAlias(std::u16string_view key)
{
    const CString name = KeyAliasName(CString(u"@").Append(key));
    KeyAlias alias;
    if (name.empty())
        return std::nullopt;
    if (GetAlias(name, alias.text))
        return alias;
    alias.runs = true;
    return GetAlias(CString(u"@") + name, alias.text) ? std::optional(alias) : std::nullopt;
}

CString KeyAliasName(std::u16string_view name)
{
    const std::size_t marks = name.starts_with(u"@@") ? 2 : 1;
    if (!IsKeyAlias(name))
        return {};
    const CString key = KeyName(name.substr(marks));
    // A "*" in an alias's name says how far it may be shortened.
    if (key.empty() || IsTypingKey(key) || key.Find(u'*') != CString::npos)
        return {};
    return CString(name.substr(0, marks)).Append(key);
}
