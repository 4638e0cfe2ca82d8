// A label for a text that may be longer than its room: the end is cut off with an ellipsis, and the
// tooltip, where there is one, tells the whole. Assistive tools always are.
#pragma once

#include <QLabel>

class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    const QString &wholeText() const { return Whole; }
    void setWholeText(const QString &text);

    /// Any width will do.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    bool tellsNot(const QString &toolTip) const;
    void cut();

    QString Whole;
};
