#include "core/jobs.h"

#include <windows.h>

#include "engine/state.h"
#include "platform/clock.h"
#include "platform/standard_handles.h"

namespace {

constexpr unsigned endedByUser = 1;

} // namespace

JobList& Jobs()
{
    if (!aRooms.jobs)
        aRooms.jobs = std::make_shared<JobList>();
    return *aRooms.jobs;
}

void NoteJob(const ChildProcess& process, std::u16string_view command)
{
    if (!process)
        return;
    JobList& list = Jobs();
    Job job;
    job.number = ++list.lastNumber;
    job.process = ChildProcess(DuplicateHandle(process.Get(), false).Release());
    job.object = OwnedHandle(CreateJobObjectW(nullptr, nullptr));
    if (job.object && !AssignProcessToJobObject(job.object.Get(), process.Get()))
        job.object = OwnedHandle();
    job.command = CString(command);
    job.started = Ticks();
    list.jobs.push_back(std::move(job));
}

std::vector<unsigned> ProcessesOf(const Job& job)
{
    constexpr std::size_t most = 1024;
    struct {
        JOBOBJECT_BASIC_PROCESS_ID_LIST list;
        ULONG_PTR more[most];
    } processes = {};
    std::vector<unsigned> ids;
    const bool asked = job.object && QueryInformationJobObject(job.object.Get(), JobObjectBasicProcessIdList,
                                                               &processes, sizeof processes, nullptr);
    for (DWORD i = 0; asked && i < processes.list.NumberOfProcessIdsInList; ++i)
        ids.push_back(static_cast<unsigned>(processes.list.ProcessIdList[i]));
    if (ids.empty() && !job.process.HasEnded())
        ids.push_back(GetProcessId(job.process.Get()));
    return ids;
}

bool IsRunning(const Job& job) { return !job.process.HasEnded() || !ProcessesOf(job).empty(); }

bool EndJob(Job& job)
{
    if (job.object)
        return TerminateJobObject(job.object.Get(), endedByUser);
    return job.process.Terminate(endedByUser);
}
