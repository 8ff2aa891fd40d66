// A box described in memory, as resources describe it, for DialogBoxIndirectParam. Places and sizes are in
// dialog units: a quarter of a letter's width, an eighth of its height.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <windows.h>

enum class ControlClass : std::uint16_t { Button = 0x80, Edit = 0x81, Static = 0x82 };

struct ControlPlace {
    short x = 0, y = 0, width = 0, height = 0;
};

class DialogTemplate {
public:
    DialogTemplate(std::uint32_t style, short width, short height, std::u16string_view title);
    // WS_CHILD and WS_VISIBLE are added to the style.
    void Add(ControlClass kind, std::uint32_t style, const ControlPlace& place, std::uint16_t id,
             std::u16string_view text);
    void Add(std::u16string_view className, std::uint32_t style, const ControlPlace& place, std::uint16_t id,
             std::u16string_view text);
    const DLGTEMPLATE* Get();

private:
    void Put(std::uint16_t word) { words.push_back(word); }
    void PutLong(std::uint32_t value);
    void PutText(std::u16string_view text);
    void BeginItem(std::uint32_t style, const ControlPlace& place, std::uint16_t id);

    std::vector<std::uint16_t> words; // the system wants it at an even address, as any vector is
    std::uint16_t items = 0;
};
