// The file system that searches walk; files/file_walk.h. Breaks are looked at while directories are read.
#pragma once

#include <optional>

#include "files/descriptions.h"
#include "files/file_walk.h"
#include "platform/file_details.h"

class SystemDirectories : public DirectorySource {
public:
    // Short names cost the system a look-up for each file.
    explicit SystemDirectories(bool withShortNames) : shortNames(withShortNames) {}

    unsigned Read(std::u16string_view directory, std::u16string_view name, EntrySink& sink) override;
    std::optional<DirectoryIdentity> Identify(std::u16string_view directory) override;
    std::uint64_t CompressedSize(std::u16string_view directory, std::u16string_view name) override;
    CString Owner(std::u16string_view directory, std::u16string_view name) override;
    CString Description(std::u16string_view directory, std::u16string_view name) override;

private:
    bool shortNames;
    CString describedDirectory; // whose descriptions were asked for last
    std::optional<DirectoryDescriptions> descriptions;
};

class SystemRangeClock : public RangeClock {
public:
    std::uint64_t Now() override { return FileTimeNow(); }
    std::uint64_t ToLocal(std::uint64_t fileTime) override { return times.Convert(fileTime); }

private:
    LocalFileTimes times;
};
