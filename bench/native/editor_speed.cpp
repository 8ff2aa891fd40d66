// What a key costs in the line editor with colours and suggestions on: median and the slowest hundredth, of
// the processor's time, drawing into a console in memory.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "console/line_editor.h"
#include "tests/unit/fake_console.h"
#include "tests/unit/fake_editor_world.h"
#include "text/format.h"

namespace {

using Clock = std::chrono::steady_clock;

void Measure(const char* what, std::size_t historyLines, const std::vector<const char16_t*>& lines)
{
    FakeEditorWorld world;
    for (std::size_t i = 0; i < historyLines; ++i)
        world.history.push_back(Format(u"%s file%u.txt \"some folder\\%u\"",
                                       CString(i % 3 ? u"copy /u" : u"echo"), i * 7919 % 10007, i));
    EditorSettings settings;
    settings.syntaxColors = true;
    std::vector<double> took;
    for (int pass = 0; pass < 20; ++pass)
        for (const char16_t* line : lines) {
            FakeConsole console(120, 30);
            console.Type(line);
            for (int i = 0; i < 20; ++i)
                console.Press(i % 2 ? u"Up" : u"Left");
            console.Press(u"Esc");
            console.Press(u"Enter");
            Clock::time_point before;
            bool first = true;
            console.onWait = [&] {
                const auto now = Clock::now();
                if (!first)
                    took.push_back(std::chrono::duration<double, std::micro>(now - before).count());
                first = false;
                before = Clock::now();
            };
            EditorRequest request;
            request.prompt = u"C:\\>";
            LineEditor(console, world, settings).Read(request);
        }
    std::sort(took.begin(), took.end());
    std::printf("%-28s %6zu keys, median %6.1f us, 99 %% under %7.1f us, slowest %7.1f us\n", what,
                took.size(), took[took.size() / 2], took[took.size() * 99 / 100], took.back());
}

} // namespace

int main()
{
    const std::vector<const char16_t*> lines = {u"echo file77.txt", u"copy /u file123.txt \"some fo",
                                                u"nothing begins so", u"eeeeeeeeee",
                                                u"for %a in (*.txt) do type %a"};
    Measure("no history", 0, lines);
    Measure("20,000 lines of history", 20000, lines);
    CString longLine;
    for (int i = 0; i < 400; ++i)
        longLine.Append(u"word \"and\" %more% ");
    Measure("a line of 7,000 characters", 20000, {longLine.c_str()});
    return 0;
}
