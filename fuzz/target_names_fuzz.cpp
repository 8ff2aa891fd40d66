// Target names from any pattern and any source: what must hold of every result.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "files/target_names.h"
#include "text/path_names.h"

// The pattern, a line feed, and the source name; bytes become a small alphabet, so that wildcards and periods
// are frequent.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr char16_t alphabet[] = u"*?..[]%^abAB:\\*x";
    std::u16string texts[2];
    int text = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == '\n' && text == 0)
            text = 1;
        else
            texts[text].push_back(alphabet[data[i] % 16]);
    }
    CString result;
    if (!MakeWildcardName(result, texts[0], texts[1]))
        return 0;
    // The directory stays, wildcards do not, and "*" alone gives the source's name.
    const std::u16string_view directory = DirectoryPart(texts[0]);
    if (!result.view().starts_with(directory))
        std::abort();
    const std::u16string_view name = result.view().substr(directory.size());
    if (name.find_first_of(u"*?") != name.npos && texts[1].find_first_of(u"*?") == std::u16string::npos)
        std::abort();
    const std::u16string_view source = FileNamePart(texts[1]);
    if (MakeWildcardName(result, u"*", texts[1]) && !source.ends_with(u'.') && result.view() != source)
        std::abort();
    return 0;
}
