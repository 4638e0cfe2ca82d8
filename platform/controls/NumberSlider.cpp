// The three parts of the control and how they hand over to one another.
#include "platform/controls/NumberSlider.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMouseEvent>
#include <QSlider>
#include <algorithm>
#include <cmath>

NumberSlider::NumberSlider(QWidget *parent, int least, int most, NoNumber noNumber)
    : QObject(parent)
    , Slider(new QSlider(Qt::Horizontal, parent))
    , Number(new QLabel(QString::number(least), parent))
    , Edit(new QLineEdit(parent))
    , IfNoNumber(noNumber)
{
    Slider->setRange(least, most);
    Slider->setPageStep(1);
    Number->setAlignment(Qt::AlignCenter);
    Number->installEventFilter(this);
    Edit->setAlignment(Qt::AlignCenter);
    Edit->setTextMargins(-2, 0, -2, 0); // three digits fit between the frame's edges
    Edit->hide();
    Edit->installEventFilter(this);
    setEditable(true);
    connect(Slider, &QSlider::valueChanged, this, &NumberSlider::ValueChanged);
    connect(Slider, &QSlider::sliderMoved, this, &NumberSlider::Scrolled);
}

int NumberSlider::value() const
{
    return Slider->value();
}

void NumberSlider::setValue(int value)
{
    Slider->setValue(value);
}

void NumberSlider::setMost(int most)
{
    Slider->setMaximum(most);
}

void NumberSlider::showNumber(const QString &text)
{
    Number->setText(text);
}

void NumberSlider::setEditable(bool editable)
{
    Editable = editable;
    Number->setCursor(editable ? Qt::IBeamCursor : Qt::ArrowCursor);
    if (!editable)
        Edit->hide();
}

int NumberSlider::whole(double size)
{
    return static_cast<int>(std::nearbyint(size));
}

std::optional<int> NumberSlider::parse(const QString &text)
{
    bool isNumber = false;
    double exact = QLocale::c().toDouble(text.trimmed(), &isNumber);
    if (!isNumber)
        exact = QLocale().toDouble(text.trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(exact))
        return std::nullopt;
    constexpr double Limit = 1e9;
    return static_cast<int>(std::nearbyint(std::clamp(exact, -Limit, Limit)));
}

bool NumberSlider::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Number && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        openEdit();
        return true;
    }
    if (watched == Edit && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            takeEdit();
            return true;
        case Qt::Key_Escape:
            Edit->hide();
            emit Finished();
            return true;
        default:
            break;
        }
    }
    // The context menu of the box takes the focus for a while and gives it back.
    if (watched == Edit && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
        Edit->hide();
    return QObject::eventFilter(watched, event);
}

void NumberSlider::openEdit()
{
    if (!Editable || !Number->isEnabled())
        return;
    Edit->setText(Number->text());
    Edit->show();
    Edit->raise();
    Edit->setFocus();
    Edit->selectAll();
}

void NumberSlider::takeEdit()
{
    const std::optional<int> typed = parse(Edit->text());
    Edit->hide();
    if (!typed && IfNoNumber == NoNumber::Ignored)
        return;
    setValue(typed.value_or(0));
    Number->setText(QString::number(value()));
    emit Finished();
}
