// The grid of character cells: each cell a place in twips, a caption, two colours and a border, all
// painted by one widget. Knows characters and glyphs, no map and no board.
#pragma once

#include "platform/ColorValue.h"
#include "platform/Twips.h"
#include "platform/controls/Accessibility.h"
#include "platform/controls/CellGlyphs.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class DevicePixels;

class CharCells : public QWidget, public SpokenCells
{
    Q_OBJECT

public:
    explicit CharCells(int count, QWidget *parent = nullptr);

    int count() const { return static_cast<int>(Cells.size()); }

    // Everything of one cell, by its index from 0. A setter repaints that cell alone, and only if
    // the value differs.
    const QString &Caption(int index) const { return at(index).Caption; }
    void setCaption(int index, const QString &caption);
    ColorValue ForeColor(int index) const { return at(index).ForeColor; }
    ColorValue BackColor(int index) const { return at(index).BackColor; }
    void setColors(int index, ColorValue fore, ColorValue back);
    /// 1 for a single line round the cell, 0 for none.
    int BorderStyle(int index) const { return at(index).BorderStyle; }
    void setBorderStyle(int index, int style);

    /// What the mouse is told over the cell; empty for the whole widget's tooltip, if it has one.
    QString toolTip(int index) const { return at(index).ToolTip; }
    void setToolTip(int index, const QString &text) { at(index).ToolTip = text; }
    using QWidget::setToolTip;
    using QWidget::toolTip;

    /// A transparent ground shows what is under the widget: the cells paint their lines and
    /// characters alone.
    bool isTransparent() const { return Transparent; }
    void setTransparent(bool on);

    /// How far a character may reach beyond its cell on every side, in twips; 0 at first. For cells
    /// with nothing but ground around them.
    void setReach(double twips);

    /// The cell with a frame that shows on any colours; -1 for none.
    int selectedCell() const { return Selected; }
    void setSelectedCell(int index);

    /// Places of the cells in this widget, in twips; in pixels, neighbours share their border line.
    const TwipRect &place(int index) const { return at(index).Place; }
    void setPlaces(const std::vector<TwipRect> &places);
    void setScale(const TwipScale &scale);
    /// The cell's pixels in this widget.
    QRect pixels(int index) const { return at(index).Pixels; }
    /// The cell at a point of this widget, the later one where two overlap; -1 beside the grid.
    int cellAt(const QPoint &point) const;

    /// The font of all cells. It must not merge glyphs from other fonts.
    void setCellFont(const QFont &font);
    const QFont &cellFont() const { return Glyphs.font(); }

    /// What assistive tools are told: a table of so many columns, and the text that stands for a
    /// cell. Without it one column, and the captions alone.
    void setReading(int columns, std::function<QString(int index)> textOf);
    int columns() const { return Columns; }
    QString reading(int index) const { return TextOf ? TextOf(index) : Caption(index); }
    /// The cell that the program is telling of just now; -1 for none. Nothing is painted.
    void setActiveCell(int index) { Active = index; }
    int activeCell() const { return Active; }
    /// The selected cell, else the active one.
    int spokenCell() const override { return Selected >= 0 ? Selected : Active; }
    int spokenCount() const override { return count(); }
    int spokenColumns() const override { return Columns; }
    QString spokenName(int index) const override { return reading(index); }
    QString spokenDescription(int index) const override { return toolTip(index); }
    QRect spokenPlace(int index) const override { return pixels(index); }
    int spokenAt(const QPoint &point) const override { return cellAt(point); }
    void pressCell(int index) override;

    QSize sizeHint() const override;

signals:
    /// A mouse button went down on a cell; the position is the screen's.
    void MouseDown(int index, Qt::MouseButton button, const QPoint &globalPosition);
    /// The mouse moved over a cell.
    void MouseMove(int index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Cell
    {
        TwipRect Place;
        QRect Pixels;
        QString Caption;
        QString ToolTip;
        ColorValue ForeColor = SystemColorValue(8);
        ColorValue BackColor = SystemColorValue(5);
        int BorderStyle = 1;
    };
    const Cell &at(int index) const { return Cells.at(static_cast<std::size_t>(index)); }
    Cell &at(int index) { return Cells.at(static_cast<std::size_t>(index)); }
    /// The pixels that a cell's character can touch.
    QRect reached(const Cell &cell) const;
    void paintCell(QPainter &painter, const DevicePixels &device, const Cell &cell, bool selected);
    void tellNewCaption(int index);

    std::vector<Cell> Cells;
    TwipScale Scale;
    CellGlyphs Glyphs;
    int Columns = 1;
    std::function<QString(int)> TextOf;
    int Active = -1;
    int Selected = -1;
    bool Transparent = false;
    double Reach = 0; ///< twips
};
