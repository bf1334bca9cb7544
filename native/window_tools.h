#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

/// What our Win32 windows have in common. Lengths "at 96 DPI" are scaled by the resolution of the
/// screen.
namespace native {

/// The library, or the program, that this code was linked into: where its resources are.
HINSTANCE ownModule();

/// Length in pixels of the screen that the window is on.
int scaled(HWND window, int lengthAt96Dpi);

class Font {
public:
    /// heightAt96Dpi: of a line.
    Font(const wchar_t* face, int heightAt96Dpi, HWND window);
    ~Font();
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    /// Lives as long as this: longer than the windows that use it.
    HFONT get() const { return font_; }

private:
    HFONT font_;
};

class IconFile {
public:
    /// path: of an .ico file. size: width and height in pixels.
    IconFile(const std::u16string& path, int size);
    ~IconFile();
    IconFile(const IconFile&) = delete;
    IconFile& operator=(const IconFile&) = delete;

    /// Null when the file could not be read. Lives as long as this.
    HICON get() const { return icon_; }

private:
    HICON icon_;
};

/// The whole text of a window or control.
std::u16string textOf(HWND window);

/// Of a line of text in the font of the control.
SIZE textSize(HWND control, const std::u16string& text);

/// A text as a caption of a button or a frame, where "&" would mark the next sign as a key.
std::u16string asCaption(std::u16string_view text);

/// Makes a rectangle of the screen no larger than the work area of the screen that is nearest, and
/// moves it into it.
void fitToScreen(RECT& rectangle);

/// While it lives, the window that the user worked in takes no input: another one, which it owns,
/// is modal.
class OwnerBlock {
public:
    OwnerBlock();
    ~OwnerBlock();
    OwnerBlock(const OwnerBlock&) = delete;
    OwnerBlock& operator=(const OwnerBlock&) = delete;

    /// The thread's active window, else its first visible one; null when it has none.
    HWND owner() const { return owner_; }
    /// Gives the owner back to the user. Before the modal window is destroyed: another program's
    /// window would become the active one otherwise.
    void release();

private:
    HWND owner_;
    bool isBlocking_ = false;
};

/// Runs the messages of the thread until `isDone`, or until the window is gone. takes: sees each
/// message before the window's dialog keys do, and returns whether it is done with it; may be
/// empty. A WM_QUIT ends this at once, and is left for the loop of the host.
void runModal(HWND window, const std::function<bool()>& isDone,
              const std::function<bool(MSG&)>& takes = {});

}  // namespace native
