#include "engine/data_folder.h"

#include "engine/state.h"
#include "platform/environment.h"

CString DataFolder()
{
    CString folder;
    for (const char16_t* name : {u"LOCALAPPDATA", u"USERPROFILE", u"TEMP"})
        if (ReadEnvironment(name, folder) && !folder.empty())
            return folder;
    return aTexts.startDirectory;
}
