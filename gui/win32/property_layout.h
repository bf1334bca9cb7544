#pragma once

#include <windows.h>

#include <vector>

#include "edits/editing_windows.h"

/// Where the controls of the property window are: the fields of a property beside each other, as
/// wide as the window allows, their captions above them, and the buttons at the right of the
/// bottom.
class PropertyLayout {
public:
    /// window: has its controls and their captions, and their font.
    PropertyLayout(HWND window, const IFC::PropertyWindowInput& input);

    /// The rectangle of the screen at which the window opens.
    RECT firstPlace() const;
    /// The smallest size of the window with its frame in which nothing is cut.
    SIZE smallestSize() const;
    /// Places the controls in the present size of the window.
    void place() const;

private:
    struct Column {
        int labelId;
        int fieldId;
        int share;  // of the width
    };

    int px(int lengthAt96Dpi) const;
    HWND control(int id) const { return GetDlgItem(window_, id); }
    int widthOf(int id) const;
    int buttonWidth(int id) const;
    int buttonHeight() const;
    int labelsHeight() const;
    int groupHeight(int labelsHeight, int fieldsHeight) const;
    int smallestWidth() const;
    int smallestHeight() const;
    int smallestWidthOf(const Column& column) const;
    std::vector<int> columnWidths(int room) const;
    int fieldHeightOf(int id, int room) const;
    void placeProperty(const RECT& group) const;
    void put(int id, int x, int y, int width, int height) const;

    HWND window_;
    int resolution_;
    int lineHeight_ = 0;   // of the font, in pixels
    int fieldHeight_ = 0;  // of one line, in pixels
    bool hasProperty_;
    bool isHigh_;
    bool hasLabels_;
    std::vector<Column> columns_;
};
