#include "platform/screen_picture.h"

#include <memory>
#include <string>

#include "platform/byte_files.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyLibrary gdi32(L"gdi32.dll");
constinit LazyFunction<decltype(GetDC)> getDC(libraries::user32, "GetDC");
constinit LazyFunction<decltype(ReleaseDC)> releaseDC(libraries::user32, "ReleaseDC");
constinit LazyFunction<decltype(GetWindowRect)> getWindowRect(libraries::user32, "GetWindowRect");
constinit LazyFunction<decltype(GetSystemMetrics)> getSystemMetrics(libraries::user32, "GetSystemMetrics");
constinit LazyFunction<decltype(CreateCompatibleDC)> createCompatibleDC(gdi32, "CreateCompatibleDC");
constinit LazyFunction<decltype(DeleteDC)> deleteDC(gdi32, "DeleteDC");
constinit LazyFunction<decltype(CreateDIBSection)> createSection(gdi32, "CreateDIBSection");
constinit LazyFunction<decltype(SelectObject)> selectObject(gdi32, "SelectObject");
constinit LazyFunction<decltype(DeleteObject)> deleteObject(gdi32, "DeleteObject");
constinit LazyFunction<decltype(BitBlt)> bitBlt(gdi32, "BitBlt");

// The screen's own device context.
class ScreenContext {
public:
    ScreenContext() : context(getDC(nullptr)) {}
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    ~ScreenContext()
    {
        if (context)
            releaseDC(nullptr, context);
    }
    HDC Get() const { return context; }

private:
    HDC context;
};

struct ContextDeleter {
    using pointer = HDC;
    void operator()(HDC context) const { deleteDC(context); }
};
struct BitmapDeleter {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { deleteObject(bitmap); }
};

RECT PlaceOf(HWND window)
{
    RECT place = {};
    if (window) {
        getWindowRect(window, &place);
        return place;
    }
    place.left = getSystemMetrics(SM_XVIRTUALSCREEN);
    place.top = getSystemMetrics(SM_YVIRTUALSCREEN);
    place.right = place.left + getSystemMetrics(SM_CXVIRTUALSCREEN);
    place.bottom = place.top + getSystemMetrics(SM_CYVIRTUALSCREEN);
    return place;
}

template <typename Record> std::string_view BytesOf(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof(record)};
}

unsigned WriteBitmap(std::u16string_view fileName, const BITMAPINFOHEADER& header, const void* pixels)
{
    BITMAPFILEHEADER fileHeader = {};
    fileHeader.bfType = 0x4D42; // "BM"
    fileHeader.bfOffBits = sizeof(fileHeader) + sizeof(header);
    fileHeader.bfSize = fileHeader.bfOffBits + header.biSizeImage;
    ReplacedFile file;
    const bool done = file.Create(fileName) && file.Write(BytesOf(fileHeader)) &&
                      file.Write(BytesOf(header)) &&
                      file.Write({static_cast<const char*>(pixels), header.biSizeImage}) && file.Commit();
    return done ? 0u : unsigned{GetLastError()};
}

} // namespace

unsigned SavePicture(std::u16string_view fileName, HWND window)
{
    const ScreenContext screen;
    const RECT place = PlaceOf(window);
    BITMAPINFO info = {};
    BITMAPINFOHEADER& header = info.bmiHeader;
    header.biSize = sizeof(header);
    header.biWidth = place.right - place.left;
    header.biHeight = place.bottom - place.top;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    if (!screen.Get() || header.biWidth <= 0 || header.biHeight <= 0)
        return ERROR_INVALID_HANDLE;
    header.biSizeImage = static_cast<DWORD>(header.biWidth) * static_cast<DWORD>(header.biHeight) * 4;

    const std::unique_ptr<HDC, ContextDeleter> memory(createCompatibleDC(screen.Get()));
    void* pixels = nullptr;
    const std::unique_ptr<HBITMAP, BitmapDeleter> bitmap(
        createSection(screen.Get(), &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!memory || !bitmap)
        return ERROR_NOT_ENOUGH_MEMORY;
    const HGDIOBJ before = selectObject(memory.get(), bitmap.get());
    const BOOL copied = bitBlt(memory.get(), 0, 0, header.biWidth, header.biHeight, screen.Get(), place.left,
                               place.top, SRCCOPY | CAPTUREBLT);
    const unsigned failed = copied ? 0u : unsigned{GetLastError()};
    selectObject(memory.get(), before);
    return failed ? failed : WriteBitmap(fileName, header, pixels);
}
