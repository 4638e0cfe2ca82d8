// A board of colour blocks with a mark round the chosen one. It takes the keyboard and the mouse;
// what a key does to the choice is its owner's rule.
#pragma once

#include "platform/ColorValue.h"
#include "platform/Twips.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

class ColorBlocks : public QWidget
{
    Q_OBJECT

public:
    struct Block
    {
        TwipRect Place; ///< within this widget
        ColorValue Color = 0;
        QString Label; ///< also the tooltip; empty for none
    };
    /// Where a key (Qt::Key) takes the choice from block n, counted from 1; n for a key without
    /// effect.
    using KeyRule = std::function<int(int n, int key)>;

    ColorBlocks(std::vector<Block> blocks, const TwipScale &scale, KeyRule rule,
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
    bool event(QEvent *event) override;

private:
    const Block &at(int n) const { return Blocks.at(static_cast<std::size_t>(n - 1)); }
    Block &at(int n) { return Blocks.at(static_cast<std::size_t>(n - 1)); }
    int blockAt(const QPoint &point) const;
    QColor markColor() const;

    std::vector<Block> Blocks;
    TwipScale Scale;
    KeyRule Rule;
    int Chosen = 1;
    double MarkWidth = 0;
    double MarkHeight = 0;
    bool ToolTips = true;
};
