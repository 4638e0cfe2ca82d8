// A board of colour blocks with a mark round the chosen one. It takes the keyboard and the mouse;
// what a key does to the choice is its owner's rule.
#pragma once

#include "platform/ColorValue.h"
#include "platform/Twips.h"
#include "platform/controls/Accessibility.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class ColorBlocks : public QWidget, public SpokenCells
{
    Q_OBJECT

public:
    struct Block
    {
        TwipRect Place; ///< within this widget
        ColorValue Color = 0;
        QString Label;       ///< also the tooltip; empty for none
        QString Spoken = {}; ///< for assistive tools; empty for the label
    };
    /// Where a key (Qt::Key) takes the choice from block n, counted from 1; n for a key without
    /// effect.
    using KeyRule = std::function<int(int n, int key)>;

    /// `columns` is the number of blocks in a row.
    ColorBlocks(std::vector<Block> blocks, int columns, const TwipScale &scale, KeyRule rule,
                QWidget *parent = nullptr);

    int ChosenBlock() const { return Chosen; }
    /// Moves the mark to block n, counted from 1.
    void setChosenBlock(int n);
    const QString &label(int n) const { return at(n).Label; }
    void setLabel(int n, const QString &text) { at(n).Label = text; }
    ColorValue color(int n) const { return at(n).Color; }
    /// Repaints that block alone.
    void setColor(int n, ColorValue color);
    QRect pixels(int n) const { return Scale.toPixels(at(n).Place); }
    /// Size of the mark in twips; it stands behind the block, centred on it.
    void setMarkSize(double width, double height);
    void setToolTips(bool on) { ToolTips = on; }
    void setScale(const TwipScale &scale);

    int spokenCount() const override { return static_cast<int>(Blocks.size()); }
    int spokenColumns() const override { return Columns; }
    QString spokenName(int index) const override;
    QString spokenDescription(int index) const override;
    QRect spokenPlace(int index) const override { return pixels(index + 1); }
    int spokenAt(const QPoint &point) const override { return blockAt(point) - 1; }
    int spokenCell() const override { return Chosen - 1; }
    void pressCell(int index) override { setChosenBlock(index + 1); }

signals:
    /// The mark moved, or was set again.
    void Moved(int n);
    /// A double click or Enter took the choice.
    void Taken();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    const Block &at(int n) const { return Blocks.at(static_cast<std::size_t>(n - 1)); }
    Block &at(int n) { return Blocks.at(static_cast<std::size_t>(n - 1)); }
    int blockAt(const QPoint &point) const;
    QColor markColor() const;

    std::vector<Block> Blocks;
    int Columns;
    TwipScale Scale;
    KeyRule Rule;
    int Chosen = 1;
    double MarkWidth = 0;
    double MarkHeight = 0;
    bool ToolTips = true;
};
