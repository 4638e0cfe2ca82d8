// The main window in a test: settings in a folder of the test's own, the fonts of tests/fonts
// alone, a screen that is not there, and somebody who answers the dialogs that come up.
#pragma once

#include "core/LockPanels.h"
#include "core/Zendova.h"
#include "fontmap/FontMap.h"
#include "fontmap/Views.h"
#include "platform/FontCatalog.h"
#include "platform/SettingsTree.h"
#include "platform/SysInfo.h"
#include "platform/controls/Look.h"
#include "platform/controls/SplitBar.h"
#include "tests/support/TestFonts.h"
#include "textboard/FillBar.h"
#include "textboard/FindBar.h"

#include <QApplication>
#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <deque>
#include <functional>
#include <memory>
#include <tuple>
#include <vector>

/// Answers the modal dialogs of the program in the order in which they are expected, by pressing
/// their real buttons. A dialog that nobody expects is closed and counted as a failure, and so is
/// an expected one that never comes.
class Answers : public QObject
{
    Q_OBJECT

public:
    Answers();
    ~Answers() override;

    /// The next dialog is a message with this title whose text, blanks folded, contains `text`; a
    /// text with carriage returns is compared whole. `button` is the caption to press.
    /// `dontRepeat` ticks the box first.
    void message(const QString &title, const QString &text, const QString &button,
                 bool dontRepeat = false);
    /// The next dialog has this title; `use` works it and must close it. One that a failed check
    /// has left open is closed, for the test to end.
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

/// A value in the settings file: its key below the program's root ("" for the root itself).
struct StoredSetting
{
    QString Key;
    QString Name;
    int Kind = 0;
    QString Value;

    bool operator<(const StoredSetting &other) const
    {
        return std::tie(Key, Name, Kind, Value) <
               std::tie(other.Key, other.Name, other.Kind, other.Value);
    }
};

/// One desktop: a settings file and a screen. Windows can be started on it one after the other.
class Desktop
{
public:
    /// The screen's size in pixels and its dots per inch; all of it is work area. The settings
    /// file has this content from before, or is not there.
    explicit Desktop(const QSize &pixels = {1280, 1024}, double dotsPerInch = 96,
                     const QByteArray &settings = {});
    ~Desktop();

    /// A new main window, started and active, on the settings as they are. On the first start the
    /// first-run question is answered with Yes.
    Zendova *start(const QString &commandTail = {});
    /// The same without any answer given in advance.
    Zendova *startAsItIs(const QString &commandTail = {});
    /// Closes the window; true if it closed.
    bool close();

    QString settingsFile() const;
    /// The bytes of the settings file; null if there is none.
    QByteArray settingsBytes() const;
    /// All values, sorted, as another program reads them from the file.
    std::vector<StoredSetting> settings() const;
    /// One value of them as text; null if it is not there.
    QString setting(const QString &key, const QString &name) const;
    /// Changes the file (tables `keys` and `settings`) as another program would.
    void alterSettings(const QString &sql);

    QTemporaryDir Folder;
    Answers Dialogs;
    std::unique_ptr<SysInfo> Screen;
    std::unique_ptr<SettingsTree> Settings;
    std::unique_ptr<Zendova> Window;
    bool Started = false;
};

/// What main() of a test of windows does: runs the test on the small fonts alone.
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
