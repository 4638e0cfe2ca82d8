// Sends the events of a person to the controls, and looks for dark pixels.
#include "tests/support/Person.h"

#include "platform/controls/FontCombo.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/SplitBar.h"
#include "textboard/TextBoard.h"

#include <QtTest>
#include <QtWidgets>

bool fillNumberBox(NumberSlider *slider, const QString &text, Qt::Key key)
{
    QTest::mouseClick(slider->number(), Qt::LeftButton);
    QLineEdit *edit = slider->edit();
    if (!edit->isVisible() || !edit->hasFocus() || edit->selectedText() != slider->number()->text())
        return false;
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
    if (edit->text() != text)
        return false;
    if (!key)
        return true;
    QTest::keyClick(edit, key);
    return !edit->isVisible();
}

bool chooseFont(Zendova *window, const QString &name)
{
    FontCombo *combo = window->FontNameCombo;
    combo->setFocus();
    QTest::keyClick(combo, name.at(0).toLatin1());
    while (combo->Text() != name && combo->SelectedItem() < combo->ItemCount())
        QTest::keyClick(combo, Qt::Key_Down);
    return combo->Text() == name;
}

void makeGlyphsReadable(Zendova *window)
{
    window->FontSizeSlider->setValue(24);                // points: 32 pixels
    window->FMapContainer->sldSetFMapSize->setValue(12); // cells of 39 pixels
}

void hover(Zendova *window, int cell)
{
    // The toolkit tells of no move to the place where it last knew the mouse, in whatever window.
    QTest::mouseMove(window->windowHandle(), QPoint(1, 1));
    const QPoint middle = window->FMapContainer->CharButton->pixels(cell).center();
    QTest::mouseMove(window->windowHandle(),
                     window->FMapContainer->CharButton->mapTo(window, middle));
    QCoreApplication::processEvents();
}

void clickCell(Zendova *window, int cell, Qt::MouseButton button)
{
    QTest::mouseClick(window->FMapContainer->CharButton, button, {},
                      window->FMapContainer->CharButton->pixels(cell).center());
}

void activate(QWidget *window)
{
    // What the toolkit advises instead comes into force in the event loop only, which must not run
    // within the handler of a dialog: it would come upon the next dialog.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(window);
    QT_WARNING_POP
}

void typeFileName(QDialog *dialog, const QString &path)
{
    auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
    edit->setCompleter(nullptr); // whose list would take the key below
    activate(dialog);
    edit->setFocus(); // without it what is typed follows the list instead
    edit->selectAll();
    QTest::keyClicks(edit, path);
    QTest::keyClick(edit, Qt::Key_Return);
    if (dialog->isVisible())
        dialog->reject();
}

void pullSplitBar(Zendova *window, int pixels)
{
    const QPoint grip(50, 1);
    QTest::mousePress(window->SplitBar, Qt::LeftButton, {}, grip);
    QTest::mouseMove(window->SplitBar, QPoint(50, pixels + 2)); // it is held at its pixel 2
    QTest::mouseRelease(window->SplitBar, Qt::LeftButton, {}, grip);
}

QPoint originOfFullRow(const QImage &image, int cell)
{
    for (int x = 0; x < image.width(); ++x)
        for (int y = image.height() - 1; y >= 0; --y)
            if (qGray(image.pixel(x, y)) < 128)
                return QPoint(x - (2 * cell + 3) / 7, y + 1);
    return {};
}

QImage pictureOf(CharCells *cells, int index)
{
    return cells->grab(cells->pixels(index)).toImage();
}

QImage pictureOf(::TextBoard *board)
{
    return board->viewport()->grab().toImage();
}

GlyphPicture firstGlyph(Zendova *window, const QString &text)
{
    window->TextBoard->setText(QChar(FullRowCode));
    const QPoint origin = originOfFullRow(pictureOf(window->TextBoard));
    window->TextBoard->setText(text);
    window->TextBoard->setSelStart(static_cast<int>(text.size())); // the caret out of the way
    return readGlyph(pictureOf(window->TextBoard), origin);
}

void select(const Zendova *window, int start, int length)
{
    window->TextBoard->setSelStart(start);
    window->TextBoard->setSelLength(length);
}

QWidgetList controlsBelow(const QWidget *parent)
{
    QWidgetList found;
    for (QWidget *child : parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() || child->objectName().startsWith("qt_"))
            continue;
        found += child;
        if (!child->inherits("QAbstractScrollArea") && !child->inherits("QComboBox") &&
            !child->inherits("QLineEdit"))
            found += controlsBelow(child);
    }
    return found;
}

QAction *menuItem(const Zendova *window, const char *name)
{
    auto *item = window->findChild<QAction *>(name);
    Q_ASSERT(item);
    return item;
}

void clickItem(QMenu *opened, QAction *item)
{
    const QPoint place = opened->actionGeometry(item).center();
    QTest::mouseMove(opened, place); // a menu takes no click of a mouse that never moved over it
    QTest::mouseClick(opened, Qt::LeftButton, {}, place);
}

void chooseFromMenu(const Zendova *window, const char *menu, const char *item)
{
    auto *opened = window->findChild<QMenu *>(menu);
    opened->popup({});
    clickItem(opened, menuItem(window, item));
    opened->close();
}

void lookAtMenu(const Zendova *window, const char *menu)
{
    auto *opened = window->findChild<QMenu *>(menu);
    opened->popup({});
    opened->close();
}
