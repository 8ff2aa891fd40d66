#include "batch/zipped_text.h"

#include <memory>
#include <string>

#include <archive.h>
#include <archive_entry.h>

#include "engine/results.h"
#include "text/encoding.h"

namespace {

constexpr std::size_t longestText = std::size_t{64} << 20; // an archive may claim to hold anything
constexpr std::size_t roomForHeaders = 65536;

using ArchiveReader = std::unique_ptr<archive, decltype(&archive_read_free)>;
using ArchiveWriter = std::unique_ptr<archive, decltype(&archive_write_free)>;
using ArchiveEntry = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

// Leaves the archive at its first file.
bool FindFirstFile(archive* source)
{
    archive_entry* entry = nullptr;
    while (archive_read_next_header(source, &entry) >= ARCHIVE_WARN)
        if (archive_entry_filetype(entry) == AE_IFREG)
            return true;
    return false;
}

bool ReadContents(archive* source, std::vector<char>& text)
{
    constexpr std::size_t block = 65536;
    std::vector<char> contents;
    for (;;) {
        const std::size_t old = contents.size();
        contents.resize(old + block);
        const la_ssize_t got = archive_read_data(source, contents.data() + old, block);
        if (got < 0 || old + static_cast<std::size_t>(got) > longestText)
            return false;
        contents.resize(old + static_cast<std::size_t>(got));
        if (got == 0)
            break;
    }
    text = std::move(contents);
    return true;
}

} // namespace

bool IsZippedText(std::string_view file) noexcept { return file.starts_with("PK\x03\x04"); }

bool ZipUncompressBTM(std::string_view file, const CString& name, std::vector<char>& text)
{
    const ArchiveReader source(archive_read_new(), archive_read_free);
    if (archive_read_support_format_zip(source.get()) >= ARCHIVE_WARN &&
        archive_read_open_memory(source.get(), file.data(), file.size()) == ARCHIVE_OK &&
        FindFirstFile(source.get()) && ReadContents(source.get(), text))
        return true;
    MVError(errors::zippedFile, name);
    return false;
}

std::string ZipCompressBTM(std::string_view text, const CString& name)
{
    const ArchiveWriter target(archive_write_new(), archive_write_free);
    const ArchiveEntry entry(archive_entry_new(), archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), ToUtf8(name).c_str());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(text.size()));

    std::string file(text.size() + roomForHeaders, '\0');
    std::size_t used = 0;
    archive_write_set_bytes_in_last_block(target.get(), 1); // no padding
    const bool made =
        archive_write_set_format_zip(target.get()) == ARCHIVE_OK &&
        archive_write_set_options(target.get(), "zip:hdrcharset=UTF-8") >= ARCHIVE_WARN &&
        archive_write_open_memory(target.get(), file.data(), file.size(), &used) == ARCHIVE_OK &&
        archive_write_header(target.get(), entry.get()) >= ARCHIVE_WARN &&
        archive_write_data(target.get(), text.data(), text.size()) == static_cast<la_ssize_t>(text.size()) &&
        archive_write_close(target.get()) >= ARCHIVE_WARN;
    file.resize(made ? used : 0);
    return file;
}
