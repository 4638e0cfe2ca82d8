// The main window in a test: settings in a folder of the test's own, the fonts of tests/fonts
// alone, a screen that is not there, and somebody who answers the dialogs that come up.
#pragma once

#include "core/GlobalDeclarations.h"
#include "core/LockPanels.h"
#include "core/RegistryFunctions.h"
#include "core/Zendova.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/FontCatalog.h"
#include "platform/SettingsTree.h"
#include "platform/SysInfo.h"
#include "platform/controls/BandBar.h"
#include "platform/controls/CharCells.h"
#include "platform/controls/FontCombo.h"
#include "platform/controls/Look.h"
#include "platform/controls/NumberSlider.h"
#include "platform/controls/SplitBar.h"
#include "platform/controls/Toolbar.h"
#include "tests/support/Files.h"
#include "tests/support/Messages.h"
#include "tests/support/Person.h"
#include "tests/support/TestFonts.h"
#include "textboard/FillBar.h"
#include "textboard/FindBar.h"
#include "textboard/FindBox.h"
#include "textboard/TextBoard.h"

#include <QtTest>
#include <QtWidgets>
#include <deque>
#include <functional>
#include <memory>

/// Answers the modal dialogs of the program in the order in which they are expected, by pressing
/// their real buttons. A dialog that nobody expects is closed and counted as a failure, and so is
/// an expected one that never comes.
class Answers : public QObject
{
    Q_OBJECT

public:
    Answers();

    /// The next dialog is this message, about `what`: its text, blanks folded, contains the words;
    /// one with carriage returns is compared whole. `button` is pressed, the box ticked before.
    void message(const ExpectedMessage &said, const QString &button = "Ok",
                 const QString &what = {}, bool dontRepeat = false);
    /// The same for a message by its whole title and its text.
    void message(const QString &title, const QString &text, const QString &button,
                 bool dontRepeat = false);
    /// The next dialog has this title; `use` works it and must close it.
    void dialog(const QString &title, std::function<void(QDialog *)> use);
    /// True if every expected dialog came and no other; tells what was wrong otherwise.
    bool allCame();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Expected
    {
        QString Title;
        std::function<void(QDialog *)> Use;
    };
    void answer(QDialog *dialog);

    std::deque<Expected> Waiting;
    QStringList Faults;
};

/// As the settings file shows a value.
QString stored(const WrittenValue &value);

/// One desktop: a settings file and a screen. Windows can be started on it one after the other.
class Desktop
{
public:
    /// The screen is work area all over. The settings file has this content, or is not there.
    explicit Desktop(const QSize &pixels = {1280, 1024}, double dotsPerInch = 96,
                     const QByteArray &settings = {});
    ~Desktop();

    /// A new main window, started and active. On the first start the first-run question is
    /// answered with Yes.
    Zendova *start(const QString &commandTail = {});
    /// The same without any answer given in advance.
    Zendova *startAsItIs(const QString &commandTail = {});
    /// Closes the window; true if it closed.
    bool close() { return Window->close(); }

    QString settingsFile() const { return Folder.filePath("settings.sqlite"); }
    /// The values by their paths below the program's root, as another program reads them.
    QMap<QString, QString> settings() const;
    /// One of them; null if it is not there.
    QString setting(const QString &key, const QString &name) const;
    /// Changes the file (tables `keys` and `settings`) as another program would.
    void alterSettings(const QString &sql);
    /// The same for a value that is there. The kind is what its type asks for, or this one.
    void store(const QString &key, const QString &name, const WrittenValue &value, int kind = 0);

    QTemporaryDir Folder;
    Answers Dialogs;
    std::unique_ptr<SysInfo> Screen;
    std::unique_ptr<SettingsTree> Settings;
    std::unique_ptr<Zendova> Window;
    bool Started = false;
};

/// A test of the main window: each of its functions, and each data row, finds a desktop and a
/// window started on it, and fails if a dialog came that it did not expect, or none that it did.
class WindowTest : public QObject
{
    Q_OBJECT

protected slots:
    virtual void init() { begin(); }
    virtual void cleanup();

protected:
    /// Another desktop instead of the one that is there, without a window; arguments as for it.
    void useDesktop(const QSize &pixels = {1280, 1024}, double dotsPerInch = 96,
                    const QByteArray &settings = {});
    /// The same, and a window on it.
    void begin(const QSize &pixels = {1280, 1024}, double dotsPerInch = 96);
    void restart(const QString &commandTail = {}) { window = desktop->start(commandTail); }
    void expect(const ExpectedMessage &said, const QString &button = "Ok", const QString &what = {},
                bool dontRepeat = false)
    {
        desktop->Dialogs.message(said, button, what, dontRepeat);
    }
    ::TextBoard *board() const { return window->TextBoard; }
    /// The button of this key, on whatever bar of the window it is.
    QToolButton *button(const char *key) const;
    void press(const char *key) const { QTest::mouseClick(button(key), Qt::LeftButton); }
    void keys(const QString &sequence) const
    {
        QTest::keySequence(window->focusWidget(), QKeySequence(sequence));
    }

    std::unique_ptr<Desktop> desktop;
    Zendova *window = nullptr;
};

template<typename Test>
int runWindowTest(int argc, char *argv[])
{
    const TestFonts fonts;
    FontCatalog catalog;
    QApplication application(argc, argv);
    QApplication::setStyle(new Look);
    Test test;
    return fonts.isValid() ? QTest::qExec(&test, argc, argv) : 1;
}

#define ZENDOVA_WINDOW_TEST(Test)                                                                  \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        return runWindowTest<Test>(argc, argv);                                                    \
    }
