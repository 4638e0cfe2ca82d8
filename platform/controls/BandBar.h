// A bar of one row whose bands can be made wider and narrower by their grips. The last visible band
// takes what is left of the bar, whatever its own width. In a bar that is too narrow for the widths
// every band keeps at least its grip in view, and its width.
#pragma once

#include "platform/Twips.h"

#include <QWidget>
#include <initializer_list>
#include <span>
#include <vector>

class BandBar : public QWidget
{
    Q_OBJECT

public:
    explicit BandBar(const TwipScale &scale, QWidget *parent = nullptr);

    /// Adds a band behind the others: what it holds and its width in twips, grip included. The
    /// content gets the arrow for its cursor.
    void addBand(QWidget *content, double width);
    /// Adds one for each, in their order.
    void addBands(std::initializer_list<QWidget *> contents, std::span<const qint32> widths);
    int bandCount() const { return static_cast<int>(Bands.size()); }

    /// Width of a band in twips, by its index from 0. A width below the grip's becomes the grip's.
    double bandWidth(int index) const;
    void setBandWidth(int index, double width);
    bool isBandVisible(int index) const;
    void setBandVisible(int index, bool visible);
    /// The band's content.
    QWidget *band(int index) const;

    void setScale(const TwipScale &scale);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    struct Band
    {
        QWidget *Content = nullptr;
        double Width = 0; ///< twips
        bool Visible = true;
        int Left = 0; ///< pixels
    };
    void arrange();
    /// The visible band whose grip is under a point, if it can be dragged (not the first); else -1.
    int gripAt(const QPoint &point) const;
    int visibleBefore(int index) const;

    std::vector<Band> Bands;
    TwipScale Scale;
    int Dragged = -1;
};
