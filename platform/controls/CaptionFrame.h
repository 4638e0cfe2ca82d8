// A frame with a caption on its upper line, around controls that are placed in twips: group boxes
// of the desktop's styles take the room of the first of them for the caption.
#pragma once

#include <QGroupBox>

class CaptionFrame : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent *event) override;
};
