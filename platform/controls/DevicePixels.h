// Brings what is painted in lengths of a widget onto whole pixels of the screen.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>
#include <algorithm>
#include <cmath>

/// Where a pixel of the toolkit is one and a quarter of the screen's, lines painted at their own
/// places would come out as one and as two, or behind the edge of their widget.
class DevicePixels
{
public:
    /// The way from the widget to the device: QPainter::deviceTransform.
    explicit DevicePixels(const QTransform &toDevice) : ToDevice(toDevice) {}

    double across(double x) const { return snap(x, ToDevice.m11(), ToDevice.dx()); }
    double down(double y) const { return snap(y, ToDevice.m22(), ToDevice.dy()); }
    /// A way in whole pixels of the device, no shorter than the one given.
    QPointF steps(const QPointF &way) const
    {
        return QPointF(lengthen(way.x(), ToDevice.m11()), lengthen(way.y(), ToDevice.m22()));
    }
    /// Thickness of a line.
    double line() const
    {
        constexpr double slack = 1e-6; // a scale of 2 that has been computed
        return std::max(1.0, std::floor(ToDevice.m11() + slack)) / ToDevice.m11();
    }
    /// From edge to edge.
    QRectF between(const QRect &pixels) const
    {
        return QRectF(
            QPointF(across(pixels.left()), down(pixels.top())),
            QPointF(across(pixels.left() + pixels.width()), down(pixels.top() + pixels.height())));
    }
    /// The place of a cell. Its lower and right line begin where those of its neighbours do.
    QRectF cell(const QRect &pixels) const
    {
        return QRectF(QPointF(across(pixels.left()), down(pixels.top())),
                      QPointF(across(pixels.right()) + line(), down(pixels.bottom()) + line()));
    }

private:
    static double lengthen(double length, double scale)
    {
        constexpr double slack = 1e-6;
        const double exact = length * scale;
        return (exact > 0 ? std::ceil(exact - slack) : std::floor(exact + slack)) / scale;
    }
    static double snap(double length, double scale, double offset)
    {
        return (std::round(length * scale + offset) - offset) / scale;
    }

    QTransform ToDevice;
};
