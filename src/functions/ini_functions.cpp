// Reading and changing INI files of other programs.
//
// A name without a folder is looked for in the current directory. The file keeps its encoding; without a mark
// it is UTF-8 when it looks so, else in the system's code page.
#include "functions/families.h"

#include <string>
#include <vector>

#include <windows.h>

#include "files/text_encoding.h"
#include "files/whole_text.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/file_facts.h"
#include "platform/whole_file.h"
#include "text/ini_text.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t largestFile = std::size_t{16} << 20; // bytes

struct IniFile {
    CString path;
    RecognisedEncoding encoding;
    IniText text{CString()};
    bool exists = false;
};

// 0 also for a file that does not exist.
int ReadIniFile(View name, IniFile& file)
{
    std::string bytes;
    file.path = SystemPath(FullPathName(FileArgument(name)));
    file.exists = ReadFileAttributes(file.path).has_value();
    if (!file.exists)
        return 0;
    if (!ReadFileToReplace(file.path, bytes, largestFile))
        return Refuse(GetLastError());
    file.encoding = RecogniseTextFile(bytes);
    file.text = IniText(DecodeWhole(bytes, file.encoding, GetACP()));
    return 0;
}

bool WriteIniFile(const IniFile& file)
{
    return ReplaceWholeFile(file.path, EncodeWhole(file.text.Text(), file.encoding, GetACP()));
}

CString JoinNames(const std::vector<CString>& names)
{
    CString list;
    for (const CString& name : names)
        list.Append(list.empty() ? u"" : u" ").Append(AddQuotes(name));
    return list;
}

CString Bare(View piece) { return CString(BareArgument(piece)).Trim(); }

} // namespace

// @iniread[file[,section[,entry]]]: the value; without an entry the section's entries, without a section the
// names of all sections, parted by blanks. "" for what is not there.
int Iniread_Function(FunctionCall& call)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    IniFile file;
    if (const int code = ReadIniFile(pieces[0], file))
        return code;
    if (pieces.size() == 1)
        return answer::ForeignText(call, JoinNames(file.text.Sections()));
    if (pieces.size() == 2)
        return answer::ForeignText(call, JoinNames(file.text.Entries(Bare(pieces[1]))));
    return answer::ForeignText(call, file.text.Value(Bare(pieces[1]), Bare(pieces[2])).value_or(CString()));
}

// @iniwrite[file,section[,entry[,value]]]: sets the value, which may hold commas. Without a value the entry
// is removed, without an entry the section. Whether that was done.
int Iniwrite_Function(FunctionCall& call)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    if (pieces.size() < 2)
        return Refuse(errors::missingArgument);
    IniFile file;
    if (const int code = ReadIniFile(pieces[0], file))
        return code;
    const CString section = Bare(pieces[1]);
    const CString entry = pieces.size() > 2 ? Bare(pieces[2]) : CString();
    if (pieces.size() > 2 && entry.empty())
        return Refuse(errors::missingArgument);
    if (pieces.size() == 2) {
        file.text.Remove(section);
    } else if (pieces.size() == 3) {
        file.text.Remove(section, entry);
    } else {
        const std::size_t start = static_cast<std::size_t>(pieces[3].data() - call.arguments.data());
        file.text.Set(section, entry, BareArgument(call.arguments.substr(start)));
    }
    const bool nothingToDo = pieces.size() < 4 && !file.exists;
    return answer::Flag(call, nothingToDo || WriteIniFile(file));
}
