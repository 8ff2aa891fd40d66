// The EditorConsole that the process is attached to. It owns the console's modes: one at a time, for as long
// as single keys are read.
#pragma once

#include "console/editor_console.h"
#include "platform/console_drawing.h"

class SystemEditorConsole : public EditorConsole {
public:
    // False when there is no console to work with.
    explicit operator bool() const { return raw && *raw; }

    ConsoleEvent Wait(std::optional<std::uint64_t> milliseconds) override;
    void Break() override;
    ConsoleEvent Peek() override;
    bool Await(std::uint64_t milliseconds) override;
    std::size_t Waiting() override;
    void Lend(bool lent) override;
    void WatchMouse(bool on) override;
    ScreenExtent Extent() override;
    ScreenPlace Cursor() override;
    void PlaceCursor(ScreenPlace place) override;
    void ShapeCursor(int percent) override;
    int CursorShape() override;
    unsigned Attributes() override;
    void WriteRun(ScreenPlace place, std::u16string_view text, unsigned attributes) override;
    void WriteText(std::u16string_view text) override;
    int MakeRoom(int row) override;
    std::vector<ScreenCell> ReadCells(const ScreenArea& area) override;
    void WriteCells(const ScreenArea& area, const std::vector<ScreenCell>& cells) override;
    std::optional<CString> ReadClipboard() override;
    bool WriteClipboard(std::u16string_view text) override;
    void Beep() override;

    ~SystemEditorConsole() override;

private:
    RawEvent NextEvent(std::optional<std::uint64_t> milliseconds);
    void TakeBreak();

    std::optional<RawConsole> raw{std::in_place};
    KeyPress repeated;
    unsigned repeats = 0; // how many times `repeated` comes again
    std::optional<unsigned> attributesBefore;
};
