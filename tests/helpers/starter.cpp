// Starts programs for the golden-script runner and reports how they ended. One starter serves many requests:
// a process start by way of Wine's loader costs more than the case itself, and Windows exit codes have 32
// bits where the runner's side of a process boundary has 8.
//
// A request is a list of "key=value" lines (UTF-8; in values \\ stands for a backslash, \n for a line feed,
// \r for a carriage return), ended by a line "run". Keys: program, command (the whole command line), cwd, env
// (repeated, NAME=value), stdin, stdout, stderr (file names; no name means NUL), stdin-pipe (feed the file
// through a pipe), console (give the program a console of its own) and timeout (milliseconds). The answer is
// one line: "exit CODE", "timeout" or "failed WHAT: ERROR". The program and all that it started are gone when
// the answer is given. End of input ends the starter.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE h) : handle(h) {}
    Handle(Handle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept
    {
        Close();
        handle = std::exchange(other.handle, nullptr);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Close(); }

    HANDLE Get() const { return handle; }
    explicit operator bool() const { return handle != nullptr && handle != INVALID_HANDLE_VALUE; }
    void Close()
    {
        if (*this)
            CloseHandle(handle);
        handle = nullptr;
    }

private:
    HANDLE handle = nullptr;
};

struct Request {
    std::map<std::string, std::wstring> values;
    std::wstring environment; // a block: each entry ends with NUL, the block with another

    const std::wstring& Value(const std::string& key) { return values[key]; }
};

std::wstring FromUtf8(const std::string& text)
{
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), units);
    return wide;
}

std::string Unescape(const std::string& text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        const char next = text[++i];
        plain += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return plain;
}

class RequestReader {
public:
    std::optional<Request> Next()
    {
        Request request;
        std::string line;
        while (ReadLine(line)) {
            if (line == "run") {
                request.environment += L'\0';
                return request;
            }
            const std::size_t equals = line.find('=');
            const std::string key = line.substr(0, equals);
            const std::wstring value = FromUtf8(Unescape(line.substr(equals + 1)));
            if (key == "env")
                request.environment += value + L'\0';
            else
                request.values[key] = value;
        }
        return std::nullopt;
    }

private:
    bool ReadLine(std::string& line)
    {
        std::size_t end;
        while ((end = buffer.find('\n')) == std::string::npos) {
            char block[4096];
            DWORD bytes = 0;
            if (!ReadFile(GetStdHandle(STD_INPUT_HANDLE), block, sizeof block, &bytes, nullptr) || bytes == 0)
                return false;
            buffer.append(block, bytes);
        }
        line = buffer.substr(0, end);
        buffer.erase(0, end + 1);
        return true;
    }

    std::string buffer;
};

Handle OpenInherited(const std::wstring& name, DWORD access, DWORD disposition)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return Handle(CreateFileW(name.empty() ? L"NUL" : name.c_str(), access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::string Failure(const char* what)
{
    return std::string("failed ") + what + ": " + std::to_string(GetLastError());
}

// Copies a file into a pipe while the program reads it, and ends early when the program does.
std::thread FeedPipe(Handle file, Handle pipe)
{
    return std::thread([file = std::move(file), pipe = std::move(pipe)] {
        char block[4096];
        DWORD bytes = 0;
        while (ReadFile(file.Get(), block, sizeof block, &bytes, nullptr) && bytes != 0) {
            DWORD written = 0;
            if (!WriteFile(pipe.Get(), block, bytes, &written, nullptr))
                break;
        }
    });
}

// Ends whatever is left in the job and waits until it is gone, so that files of the case can be removed.
void EndJob(HANDLE job)
{
    TerminateJobObject(job, 1);
    for (int tries = 0; tries < 200; ++tries) {
        JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts{};
        if (!QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &counts, sizeof counts,
                                       nullptr) ||
            counts.ActiveProcesses == 0)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

struct Streams {
    Handle in;
    Handle out;
    Handle err;
    Handle feed; // our end when standard input is a pipe
    explicit operator bool() const { return in && out && err; }
};

Streams OpenStreams(Request& request)
{
    Streams streams;
    if (request.Value("stdin-pipe").empty()) {
        streams.in = OpenInherited(request.Value("stdin"), GENERIC_READ, OPEN_EXISTING);
    } else {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        HANDLE readEnd = nullptr;
        HANDLE writeEnd = nullptr;
        if (CreatePipe(&readEnd, &writeEnd, &inherited, 0)) {
            SetHandleInformation(writeEnd, HANDLE_FLAG_INHERIT, 0);
            streams.in = Handle(readEnd);
            streams.feed = Handle(writeEnd);
        }
    }
    streams.out = OpenInherited(request.Value("stdout"), GENERIC_WRITE, CREATE_ALWAYS);
    streams.err = OpenInherited(request.Value("stderr"), GENERIC_WRITE, CREATE_ALWAYS);
    return streams;
}

Handle MakeJob()
{
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

std::string WaitForEnd(HANDLE process, HANDLE job, DWORD limit)
{
    std::string answer = "timeout";
    if (WaitForSingleObject(process, limit) == WAIT_OBJECT_0) {
        DWORD code = 0;
        GetExitCodeProcess(process, &code);
        answer = "exit " + std::to_string(code);
    }
    EndJob(job);
    WaitForSingleObject(process, 5000);
    return answer;
}

// A crowded machine now and then refuses a start that works a moment later; nothing has run by then.
bool StartSuspended(Request& request, const Streams& streams, PROCESS_INFORMATION& started)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = streams.in.Get();
    startup.hStdOutput = streams.out.Get();
    startup.hStdError = streams.err.Get();
    const DWORD console = request.Value("console").empty() ? 0UL : CREATE_NO_WINDOW;
    for (int tries = 0; tries < 3; ++tries) {
        std::wstring command = request.Value("command");
        if (CreateProcessW(request.Value("program").c_str(), command.data(), nullptr, nullptr, TRUE,
                           CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT | console,
                           request.environment.data(), request.Value("cwd").c_str(), &startup, &started))
            return true;
        const DWORD error = GetLastError();
        Sleep(200);
        SetLastError(error);
    }
    return false;
}

std::string Run(Request& request)
{
    Streams streams = OpenStreams(request);
    if (!streams)
        return Failure("redirecting");
    const Handle job = MakeJob();
    PROCESS_INFORMATION started{};
    if (!StartSuspended(request, streams, started))
        return Failure("starting");
    const Handle process(started.hProcess);
    const Handle thread(started.hThread);
    if (!AssignProcessToJobObject(job.Get(), process.Get())) {
        TerminateProcess(process.Get(), 1);
        return Failure("joining the job");
    }
    std::thread feeder;
    if (streams.feed)
        feeder = FeedPipe(OpenInherited(request.Value("stdin"), GENERIC_READ, OPEN_EXISTING),
                          std::move(streams.feed));
    streams = Streams();
    ResumeThread(thread.Get());
    const std::string answer =
        WaitForEnd(process.Get(), job.Get(), std::wcstoul(request.Value("timeout").c_str(), nullptr, 10));
    if (feeder.joinable())
        feeder.join();
    return answer;
}

} // namespace

int wmain()
{
    for (const DWORD id : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE})
        SetHandleInformation(GetStdHandle(id), HANDLE_FLAG_INHERIT, 0);
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    RequestReader reader;
    while (std::optional<Request> request = reader.Next()) {
        const std::string answer = Run(*request) + "\n";
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), answer.data(), static_cast<DWORD>(answer.size()), &written,
                  nullptr);
    }
    return 0;
}
