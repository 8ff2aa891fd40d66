// What only a host with windows of its own knows.
#include "internals/families.h"

#include "engine/host_variables.h"
#include "internals/values.h"

namespace {

bool AnswerHostText(CString& value, const char16_t* name)
{
    AskHost(name, value);
    return true;
}

bool AnswerHostNumber(CString& value, const char16_t* name)
{
    if (!AskHost(name, value))
        value = u"0";
    return true;
}

} // namespace

bool Ide_Variable(CString& value) { return AnswerHostNumber(value, u"ide"); }
// The list view: the folder that it shows, its filter, and the entries that are marked.
bool Mvfilter_Variable(CString& value) { return AnswerHostText(value, u"mvfilter"); }
bool Mvfolder_Variable(CString& value) { return AnswerHostText(value, u"mvfolder"); }
bool Mvlistview_Variable(CString& value) { return AnswerHostText(value, u"mvlistview"); }
// The tabs: the number of this one, of the one in front, how many there are, and whether they are shown.
bool Mvtab_Variable(CString& value) { return AnswerHostNumber(value, u"mvtab"); }
bool Mvtabactive_Variable(CString& value) { return AnswerHostNumber(value, u"mvtabactive"); }
bool Mvtabs_Variable(CString& value) { return AnswerHostNumber(value, u"mvtabs"); }
bool Mvtabvisible_Variable(CString& value) { return AnswerHostNumber(value, u"mvtabvisible"); }
bool Selected_Variable(CString& value) { return AnswerHostText(value, u"selected"); }
