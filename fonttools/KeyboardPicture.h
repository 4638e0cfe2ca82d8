// The picture of the keyboard, or of a part of it, in tones of the desktop, with the names of the
// keys that type no character. It is clicked like a button. Knows no font and no window.
#pragma once

#include "platform/Twips.h"

#include <QAbstractButton>
#include <QPixmap>

class KeyboardPicture : public QAbstractButton
{
    Q_OBJECT

public:
    /// `file` is a drawing in `:/icons`, whose placeholder colours are those of `Tones` in the
    /// source file; without one there is nothing to see, only to click. A picture in another one
    /// shows that part of the keyboard on which it lies.
    KeyboardPicture(const QString &file, const TwipScale &scale, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void render(const QSize &size);

    QString File;
    TwipScale Scale;
    QPixmap Picture;      ///< as last painted
    qint64 PaintedIn = 0; ///< key of the palette whose tones it has
};
