#include "files/text_encoding.h"

#include "engine/inifile.h"

RecognisedEncoding RecogniseTextFile(std::string_view block)
{
    const RecognisedEncoding found = RecogniseEncoding(block);
    const bool byItsLook = found.encoding == TextEncoding::Utf8 && found.markLength == 0;
    return byItsLook && !aIniFile.UTF8 ? RecognisedEncoding() : found;
}
