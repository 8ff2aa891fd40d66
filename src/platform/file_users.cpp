#include "platform/file_users.h"

#include <windows.h>

#include <restartmanager.h>

#include "platform/file_facts.h"
#include "platform/lazy_library.h"

namespace {

constexpr DWORD missing = ERROR_PROC_NOT_FOUND;

constinit LazyFunction<decltype(RmStartSession)> startSession(libraries::rstrtmgr, "RmStartSession", missing);
constinit LazyFunction<decltype(RmEndSession)> endSession(libraries::rstrtmgr, "RmEndSession", missing);
constinit LazyFunction<decltype(RmRegisterResources)> registerResources(libraries::rstrtmgr,
                                                                        "RmRegisterResources", missing);
constinit LazyFunction<decltype(RmGetList)> getList(libraries::rstrtmgr, "RmGetList", missing);

class RestartSession {
public:
    RestartSession()
    {
        WCHAR key[CCH_RM_SESSION_KEY + 1] = {};
        open = startSession(&session, 0, key) == ERROR_SUCCESS;
    }
    RestartSession(const RestartSession&) = delete;
    RestartSession& operator=(const RestartSession&) = delete;
    ~RestartSession()
    {
        if (open)
            endSession(session);
    }

    bool Add(const CString& file)
    {
        const wchar_t* names[] = {file.w()};
        return open && registerResources(session, 1, names, 0, nullptr, 0, nullptr) == ERROR_SUCCESS;
    }

    DWORD List(std::vector<RM_PROCESS_INFO>& processes, UINT& needed)
    {
        UINT count = static_cast<UINT>(processes.size());
        DWORD reasons = 0;
        const DWORD code = getList(session, &needed, &count, count ? processes.data() : nullptr, &reasons);
        processes.resize(code == ERROR_SUCCESS ? count : 0);
        return code;
    }

private:
    DWORD session = 0;
    bool open = false;
};

} // namespace

std::vector<std::uint32_t> ProcessesUsing(std::u16string_view file)
{
    constexpr int attempts = 5; // others may open it while the list is asked for
    RestartSession session;
    std::vector<std::uint32_t> ids;
    if (!session.Add(FullPathName(file)))
        return ids;
    std::vector<RM_PROCESS_INFO> processes;
    UINT needed = 0;
    for (int i = 0; i < attempts && session.List(processes, needed) == ERROR_MORE_DATA; ++i)
        processes.resize(needed);
    for (const RM_PROCESS_INFO& process : processes)
        ids.push_back(process.Process.dwProcessId);
    return ids;
}
