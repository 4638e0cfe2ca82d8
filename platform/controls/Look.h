// What the program paints in its own way, over whatever style the desktop has: frames that lose no
// edge at scales between whole ones, and states that can be told in every palette.
#pragma once

#include <QProxyStyle>

class Look : public QProxyStyle
{
    Q_OBJECT

public:
    /// Over the style that the application has, which it takes.
    Look();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;
};
