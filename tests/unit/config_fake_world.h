// A disk and a person in memory, for the tests of the INI parser.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "config/ini_parser.h"
#include "text/encoding.h"

class FakeWorld final : public IniWorld {
public:
    bool IsDirectory(std::u16string_view path) override { return directories.contains(std::u16string(path)); }

    void ExpandVariables(CString& line) override
    {
        ++expansions;
        const std::size_t at = line.Find(u"%size%");
        if (at != CString::npos)
            line.Replace(at, 6, u"5000");
        for (std::size_t i = 0; expandPercents && i + 1 < line.size(); ++i)
            if (line[i] == u'%' && line[i + 1] == u'%')
                line.Erase(i, 1);
    }

    CString FullName(const CString& name) override { return name; }

    bool ReadFile(const CString& name, std::string& bytes) override
    {
        const auto found = files.find(std::u16string(name.view()));
        if (found == files.end())
            return false;
        bytes = found->second;
        ++filesRead;
        return true;
    }

    CString FromAnsi(std::string_view bytes) override // as Latin-1
    {
        CString text;
        for (const char byte : bytes)
            text += static_cast<char16_t>(static_cast<unsigned char>(byte));
        return text;
    }

    IniAnswer AskLine(const CString& line) override
    {
        asked.emplace_back(line.view());
        if (answers.empty())
            return IniAnswer::Yes;
        const IniAnswer answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }

    void Report(const IniError& error, const IniPlace& place) override { reports.push_back({error, place}); }

    struct Reported {
        IniError error;
        IniPlace place;
    };

    std::set<std::u16string> directories;
    std::map<std::u16string, std::string> files;
    std::vector<IniAnswer> answers;
    std::vector<std::u16string> asked;
    std::vector<Reported> reports;
    bool expandPercents = false; // "%%" becomes "%"
    int expansions = 0;
    int filesRead = 0;
};

// Settings with everything that lines may reach.
struct Shell {
    Shell() { IniClear(&ini); }
    ~Shell() { FreeSettingStrings(ini); }
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;

    // The answer of one line; its error stands in `error` afterwards.
    int Line(std::u16string_view text, int runtime = 0)
    {
        line = text;
        error = {};
        return IniLine(line, &ini, ini_skip::nothing, runtime, error, reader);
    }
    int Parse(std::u16string_view file, unsigned skipMask = ini_section::secondary)
    {
        return IniParse(CString(file), &ini, skipMask, reader);
    }
    std::u16string Value(std::u16string_view name)
    {
        CString value;
        const int index = FindDirective(name);
        if (index < 0 || !FormatValue(aDirectives[static_cast<std::size_t>(index)], ini, value))
            return u"?";
        return std::u16string(value.view());
    }

    FakeWorld world;
    KeyBindings keys;
    SettingSources sources;
    IniReader reader{world, keys, sources};
    INIFILE ini;
    CString line;
    IniError error;
};
