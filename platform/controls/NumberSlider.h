// A number with a slider: the number is a label that a click turns into an edit box. Told once here
// for every place of the program that sets a size.
#pragma once

#include <QObject>
#include <QString>
#include <optional>

class QLabel;
class QLineEdit;
class QSlider;
class QWidget;

class NumberSlider : public QObject
{
    Q_OBJECT

public:
    /// What Enter does with text that is no number.
    enum class NoNumber {
        Ignored,   ///< the value stays and the focus is not moved
        CountsZero ///< it is brought into the limits like any number
    };

    /// Makes the slider and its label and edit box in the parent; the edit box is hidden. The
    /// window places the three.
    NumberSlider(QWidget *parent, int least, int most, NoNumber noNumber);

    QSlider *slider() const { return Slider; }
    QLabel *number() const { return Number; }
    QLineEdit *edit() const { return Edit; }

    int value() const;
    /// Brings the value into the slider's range; a different value emits ValueChanged.
    void setValue(int value);
    /// The largest value the slider and the edit box give.
    void setMost(int most);
    /// The label's text alone.
    void showNumber(const QString &text);
    /// False closes the edit box and lets a click on the number do nothing.
    void setEditable(bool editable);

    /// Text as a whole number, halves to the even neighbour, very large ones cut to a billion;
    /// nothing if it is no number.
    static std::optional<int> parse(const QString &text);
    /// The whole number that is shown for a size; halves go to the even one.
    static int whole(double size);

signals:
    /// The slider has another value, by hand or by code.
    void ValueChanged(int value);
    /// The thumb is being moved by the mouse.
    void Scrolled(int value);
    /// The edit box is closed, by Enter with a value taken or by Esc: the focus is free to move on.
    void Finished();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openEdit();
    void takeEdit();

    QSlider *Slider;
    QLabel *Number;
    QLineEdit *Edit;
    NoNumber IfNoNumber;
    bool Editable = true;
};
