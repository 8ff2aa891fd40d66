#include "text/wsl_names.h"

#include "text/compare.h"
#include "text/path_names.h"

namespace {

using View = std::u16string_view;

constexpr View drivesFolder = u"/mnt/";
constexpr View shares[] = {u"\\\\wsl.localhost\\", u"\\\\wsl$\\"};

CString WithSeparators(View path, char16_t separator)
{
    CString changed(path);
    for (std::size_t at = 0; at < changed.size(); ++at)
        if (IsPathSeparator(changed[at]))
            changed.Set(at, separator);
    return changed;
}

} // namespace

CString LinuxName(View fullName)
{
    if (fullName.starts_with(u"\\\\?\\"))
        fullName.remove_prefix(4);
    for (const View share : shares) {
        if (!BeginsNoCase(fullName, share))
            continue;
        const std::size_t distributionEnd = fullName.find_first_of(u"\\/", share.size());
        const CString path = distributionEnd == View::npos
                                 ? CString()
                                 : WithSeparators(fullName.substr(distributionEnd), u'/');
        return path.empty() ? CString(u"/") : path;
    }
    if (fullName.size() < 2 || fullName[1] != u':' || !IsAsciiLetter(fullName[0]))
        return {};
    CString name(drivesFolder);
    name.Append(LowerCase(fullName[0]));
    const CString rest = WithSeparators(fullName.substr(2), u'/');
    return rest == u"/" ? name : name.Append(rest);
}

CString WindowsName(View linuxName, View distribution)
{
    if (!linuxName.starts_with(u'/'))
        return {};
    const View rest = linuxName.starts_with(drivesFolder) ? linuxName.substr(drivesFolder.size()) : View();
    if (!rest.empty() && IsAsciiLetter(rest[0]) && (rest.size() == 1 || rest[1] == u'/')) {
        CString name(1, UpperCase(rest[0]));
        name.Append(u':').Append(WithSeparators(rest.substr(1), u'\\'));
        return rest.size() == 1 ? name.Append(u'\\') : name;
    }
    if (distribution.empty())
        return {};
    return CString(shares[0]).Append(distribution).Append(WithSeparators(linuxName, u'\\'));
}
