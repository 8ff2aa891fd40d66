#include "commands/extra_files.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <windows.h>

#include "commands/tree_removal.h"
#include "engine/inifile.h"
#include "files/descriptions.h"
#include "files/directory_source.h"
#include "files/name_pattern.h"
#include "files/partial_files.h"
#include "files/search_names.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

class Entries : public EntrySink {
public:
    void Take(const DirectoryEntry& entry) override
    {
        if (entry.name != u"." && entry.name != u"..")
            found.push_back({CString(entry.name), {}, entry.facts});
    }
    std::vector<FoundFile> found;
};

// Whether the name is surely not in the directory: one that cannot be looked at may hold it.
bool IsMissing(const CString& name)
{
    if (ReadFileAttributes(name))
        return false;
    const DWORD reason = GetLastError();
    return reason == ERROR_FILE_NOT_FOUND || reason == ERROR_PATH_NOT_FOUND;
}

class Extras {
public:
    Extras(Transfer& work, const CString& in, const TransferName& of) : transfer(work), source(in), target(of)
    {}

    // What the target has too much; nothing when one of the two cannot be read.
    std::vector<FoundFile> Read(std::vector<FoundFile>* both = nullptr)
    {
        SystemDirectories directories(false);
        Entries entries;
        std::vector<FoundFile> extras;
        if (!QueryIsDirectory(source))
            return extras;
        if (const unsigned failed = directories.Read(target.directory, u"*", entries)) {
            if (!transfer.work.Pretends())
                transfer.Failed(failed, target.shown);
            return extras;
        }
        for (FoundFile& file : entries.found) {
            if (IsPassedOver(file.name))
                continue;
            const bool missing = IsMissing(source + file.name);
            if (missing)
                extras.push_back(std::move(file));
            else if (both)
                both->push_back(std::move(file));
        }
        return extras;
    }

private:
    Transfer& transfer;
    CString source;
    TransferName target;
};

unsigned RemoveFile(const CString& name, std::uint32_t attributes, bool readOnlyToo)
{
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        if (!readOnlyToo)
            return errors::targetProtected;
        ChangeAttributes(name, attributes & ~std::uint32_t{FILE_ATTRIBUTE_READONLY});
    }
    return EraseFile(name);
}

TransferName InDirectory(const TransferName& directory, const CString& name)
{
    return {directory.directory, name, directory.shown + name};
}

} // namespace

bool IsPassedOver(const CString& name)
{
    return IsPartialFileName(name) || (aIniFile.Descriptions && EqualNoCase(name, DescriptionFileName()));
}

void RemoveExtra(Transfer& transfer, const CString& source, const TransferName& name, const EntryFacts& facts)
{
    if (!transfer.work.Wants(message::askDelete, name.shown))
        return;
    const bool isLink = (facts.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (!transfer.work.Pretends()) {
        const auto tell = [&](unsigned code, const CString& inside) { transfer.Failed(code, inside); };
        const bool readOnlyToo = transfer.switches.overProtected;
        const unsigned failed = facts.IsDirectory() && !isLink ? RemoveTree(name.Full(), readOnlyToo, tell)
                                : facts.IsDirectory()
                                    ? RemoveEmptyDirectory(name.Full())
                                    : RemoveFile(name.Full(), facts.attributes, readOnlyToo);
        if (failed != 0)
            return transfer.Failed(failed, name.shown);
    }
    if (!transfer.work.Pretends()) {
        transfer.DropDescription(source, name);
        NotifyOfChange(facts.IsDirectory() ? FolderChange::DirectoryDeleted : FolderChange::FileDeleted,
                       name.Full());
    }
    transfer.Deleted(name.shown, facts.IsDirectory());
}

void RemoveExtraFiles(Transfer& transfer, const CString& argument, const CString& source,
                      const TransferName& target)
{
    std::vector<std::unique_ptr<NamePattern>> patterns;
    for (const SearchTarget& part : SplitSearchNames(argument))
        for (const SearchName& name : part.names) {
            const bool all = name.text.empty() || name.text == u"." || name.text == u".." ||
                             QueryIsDirectory(JoinPath(part.directory, name.text));
            patterns.push_back(std::make_unique<NamePattern>(
                all ? u"*" : name.Pattern().view(), static_cast<RegexSyntax>(aIniFile.RegularExpressions)));
        }
    Extras extras(transfer, source, target);
    for (const FoundFile& file : extras.Read()) {
        if (transfer.work.IsStopped())
            return;
        const auto matches = [&](const auto& pattern) { return pattern->Matches(file.name); };
        if (!file.facts.IsDirectory() && std::any_of(patterns.begin(), patterns.end(), matches))
            RemoveExtra(transfer, source, InDirectory(target, file.name), file.facts);
    }
}

void RemoveExtraTree(Transfer& transfer, const CString& source, const TransferName& target)
{
    Extras extras(transfer, source, target);
    std::vector<FoundFile> both;
    for (const FoundFile& file : extras.Read(&both)) {
        if (transfer.work.IsStopped())
            return;
        RemoveExtra(transfer, source, InDirectory(target, file.name), file.facts);
    }
    for (const FoundFile& file : both)
        if (file.facts.IsDirectory() && (file.facts.attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
            RemoveExtraTree(transfer, source + file.name + u"\\",
                            {target.directory + file.name + u"\\", {}, target.shown + file.name + u"\\"});
}
