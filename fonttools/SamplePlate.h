// The sample sheet of the font browser as it is painted, and the frame in which it is moved. Shows
// one font, borrows no glyph from another, and knows neither list nor window.
#pragma once

#include "fonttools/SampleSheet.h"

#include <QFont>
#include <QFrame>

class QScrollBar;

/// The sheet. Its owner places it: Sheet() says how large it is.
class SamplePlate : public QWidget
{
    Q_OBJECT

public:
    explicit SamplePlate(const TwipScale &scale, QWidget *parent);

    void setSampleText(const QString &text) { SampleText = text; }
    QString sampleText() const { return SampleText; }
    /// The font's name is told to assistive tools alone. Without `fits` the sheet keeps the size
    /// that it has before any font was chosen.
    void ShowFont(const QFont &font, const QString &name, bool fits = true);
    const SampleSheet &Sheet() const { return Lines; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QFont sized(int points) const;

    TwipScale Scale;
    QFont Face;
    QString SampleText;
    SampleSheet Lines;
};

/// The frame with its two scroll bars: the keys and the wheel move them, whatever of it they meet.
class SampleFrame : public QFrame
{
    Q_OBJECT

public:
    explicit SampleFrame(QWidget *parent);

    /// Pixels on each side that are the frame's own.
    static constexpr int Border = 2;

    void setBars(QScrollBar *across, QScrollBar *down);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QScrollBar *Across = nullptr;
    QScrollBar *Down = nullptr;
};
