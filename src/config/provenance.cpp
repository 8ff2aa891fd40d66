#include "config/provenance.h"

#include "text/compare.h"

SettingSources aSettingSources;

std::uint32_t SettingSources::FileIndex(std::u16string_view name)
{
    for (std::size_t i = 0; i < files.size(); ++i)
        if (EqualNoCase(files[i], name))
            return static_cast<std::uint32_t>(i);
    files.emplace_back(name);
    return static_cast<std::uint32_t>(files.size() - 1);
}
