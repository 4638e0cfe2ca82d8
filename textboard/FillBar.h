// How full the board is: the number of its characters, the percentage and the bar between them.
#pragma once

#include "platform/controls/ControlTable.h"
#include "textboard/FillLevel.h"

#include <QWidget>

class QFrame;
class QLabel;

class FillBar : public QWidget
{
    Q_OBJECT

public:
    /// The limit is the number of characters of a full board.
    FillBar(const TwipScale &scale, int limit, QWidget *parent);

    /// Shows n characters: count, percentage and bar. Assistive tools are told when the board
    /// becomes nearly full, and when it becomes full.
    void ShowCount(int n);
    /// The bar alone.
    void UpdateProgressBar(int n);
    /// Twips across, up to the end of the percentage.
    double leastWidth() const;
    void SetToolTips(bool on) { Form.SetToolTips(on); }
    void SetScale(const TwipScale &scale) { Form.setScale(scale); }

    QLabel *NoOfChars = nullptr;
    QFrame *ProgressBack = nullptr;
    QLabel *ProgressFore = nullptr;
    QLabel *PercFilled = nullptr;

private:
    ControlTable Form;
    void tellLevel(int n);

    int Limit;
    FillLevel Told = FillLevel::Roomy;
    double ProgressWidth; ///< twips, of the bar when full
};
