#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CGridCtrl;

struct CellColor
{
    uint8_t red = 255;
    uint8_t green = 255;
    uint8_t blue = 255;
    friend bool operator==(const CellColor&, const CellColor&) = default;
};

/// How a cell's text stands in it; flags.
enum CellFormat : unsigned
{
    kCellLeft = 0,
    kCellCentred = 1,
    kCellVerticallyCentred = 2,
    kCellSingleLine = 4,
    kCellEndEllipsis = 8,
    kCellCentredLine = kCellCentred | kCellVerticallyCentred | kCellSingleLine | kCellEndEllipsis
};

/// A cell of a grid, edited in place as text. Cells belong to their grid; each change is told to the front end as a
/// change of the grid.
class CGridCell
{
public:
    CGridCell() = default;
    CGridCell(const CGridCell&) = delete;
    CGridCell& operator=(const CGridCell&) = delete;
    virtual ~CGridCell() = default;

    /// "text", "check", "combo", "color" or "button".
    virtual std::string_view kindName() const { return "text"; }

    const std::u16string& GetText() const { return m_text; }
    void SetText(std::u16string text);
    CellColor GetBackColor() const { return m_background; }
    void SetBackColor(CellColor color);
    unsigned GetFormat() const { return m_format; }
    void SetFormat(unsigned format);
    /// A read-only cell's text cannot be typed; a check box and a "..." button in it still work.
    bool IsReadOnly() const { return m_readOnly; }
    void SetReadOnly(bool readOnly);

protected:
    void changed();

private:
    friend class CGridCtrl;
    /// Takes over what every kind of cell has.
    void takeLook(const CGridCell& other);

    CGridCtrl* m_grid = nullptr;
    std::u16string m_text;
    CellColor m_background;
    unsigned m_format = kCellLeft;
    bool m_readOnly = false;
};

class CGridCellCheck : public CGridCell
{
public:
    std::string_view kindName() const override { return "check"; }
    bool GetCheck() const { return m_checked; }
    void SetCheck(bool checked);

private:
    bool m_checked = false;
};

/// A drop-down list in which another text can be typed too.
class CGridCellCombo : public CGridCell
{
public:
    std::string_view kindName() const override { return "combo"; }
    const std::vector<std::u16string>& items() const { return m_items; }
    void SetOptions(std::vector<std::u16string> items);

    /// The user typed or picked `text`.
    virtual void enter(const std::u16string& text) { SetText(text); }

private:
    std::vector<std::u16string> m_items;
};

/// A drop-down list of colours by name. "Others..." asks the front end for a colour, which joins the list.
class CGridCellComboColor : public CGridCellCombo
{
public:
    CGridCellComboColor();
    std::string_view kindName() const override { return "color"; }
    void enter(const std::u16string& text) override;

private:
    void join(const std::u16string& name);
};

/// A text that only a push button at its right end changes; pressing it is a click notification with button state 0.
class CGridBtnCell : public CGridCell
{
public:
    CGridBtnCell() { SetReadOnly(true); }
    std::string_view kindName() const override { return "button"; }
    const std::u16string& buttonText() const { return m_buttonText; }
    int buttonWidth() const { return m_buttonWidth; }
    /// Width in pixels.
    void SetupButton(std::u16string text, int width);

private:
    std::u16string m_buttonText;
    int m_buttonWidth = 0;
};
