// A bar of one row whose bands can be made wider and narrower by their grips. The last visible band
// takes what is left of the bar, whatever its own width. No band is narrower than its content:
// where the widths do not fit, bands give way from the last but one on, and get their widths back
// with the room. In a bar too narrow even for the contents every band keeps at least its grip in
// view. While the bar has the focus, which no Tab gives it, Up and Down choose a grip, and Left and
// Right pull it, Home and End as far as it goes.
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

    /// Adds a band behind the others: what it holds and its width in twips, grip included. A
    /// content whose parts no layout knows says by `leastWidth` how many twips they need; its own
    /// minimum counts where it is larger. The content gets the arrow for its cursor.
    void addBand(QWidget *content, double width, double leastWidth = 0);
    struct Content
    {
        QWidget *Control;
        double LeastWidth = 0;
    };
    /// Adds one for each, in their order.
    void addBands(std::initializer_list<Content> contents, std::span<const qint32> widths);
    int bandCount() const { return static_cast<int>(Bands.size()); }

    /// Width of a band in twips, by its index from 0. One too narrow for grip and content becomes
    /// that of the two.
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
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Band
    {
        QWidget *Content = nullptr;
        double Width = 0;        ///< twips
        double LeastContent = 0; ///< twips
        bool Visible = true;
        int Left = 0;  ///< pixels
        int Right = 0; ///< pixels; where the next one begins
    };
    /// Pixels that grip and content need.
    int leastWidth(const Band &band) const;
    void arrange();
    void keepArrangement();
    /// Pulls the grip of a band, which gripAt could give, to a pixel of the bar.
    void pull(int index, int target);
    bool canBePulled(int index) const { return isBandVisible(index) && visibleBefore(index) >= 0; }
    /// Chooses the next grip that can be pulled in this direction, 1 or -1, as long as there is
    /// one.
    void chooseGrip(int from, int direction);
    /// The visible band whose grip is under a point, if it can be dragged (not the first); else -1.
    int gripAt(const QPoint &point) const;
    int visibleBefore(int index) const;

    std::vector<Band> Bands;
    TwipScale Scale;
    int Dragged = -1;
    int Chosen = -1; ///< the band whose grip the keys pull, while the bar has the focus
};
