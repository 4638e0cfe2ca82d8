// Starts the window as main() does, and presses the buttons of its dialogs.
#include "tests/support/MainWindow.h"

#include "core/GlobalDeclarations.h"
#include "core/RegistryFunctions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QTest>
#include <QTimer>

Answers::Answers()
{
    qApp->installEventFilter(this);
}

Answers::~Answers()
{
    qApp->removeEventFilter(this);
}

void Answers::message(const QString &title, const QString &text, const QString &button,
                      bool dontRepeat)
{
    dialog(title, [=, this](QDialog *dialog) {
        const auto *area = dialog->findChild<QLabel *>("MessageArea");
        if (!area || !area->text().simplified().contains(text))
            Faults += "text of " + title + ": " + (area ? area->text().simplified() : "none");
        if (dontRepeat)
            QTest::mouseClick(dialog->findChild<QCheckBox *>(), Qt::LeftButton, {}, QPoint(8, 8));
        for (QAbstractButton *candidate : dialog->findChildren<QAbstractButton *>())
            if (candidate->isVisible() && candidate->text() == button)
                return QTest::mouseClick(candidate, Qt::LeftButton);
        Faults += "no button " + button + " in " + title;
        dialog->reject();
    });
}

void Answers::dialog(const QString &title, std::function<void(QDialog *)> use)
{
    Waiting.push_back({title, std::move(use)});
}

bool Answers::allCame()
{
    for (const Expected &expected : Waiting)
        Faults += "never came: " + expected.Title;
    Waiting.clear();
    for (const QString &fault : std::as_const(Faults))
        qWarning("%s", qPrintable(fault));
    const bool good = Faults.isEmpty();
    Faults.clear();
    return good;
}

bool Answers::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        if (auto *dialog = qobject_cast<QDialog *>(watched))
            QTimer::singleShot(0, dialog, [this, dialog] { answer(dialog); });
    return false;
}

void Answers::answer(QDialog *dialog)
{
    if (Waiting.empty() || Waiting.front().Title != dialog->windowTitle()) {
        Faults += "unexpected: " + dialog->windowTitle();
        dialog->reject();
        return;
    }
    const Expected expected = std::move(Waiting.front());
    Waiting.pop_front();
    expected.Use(dialog);
}

Desktop::Desktop(const QSize &pixels, double dotsPerInch)
    : Screen(std::make_unique<SysInfo>())
    , Settings(std::make_unique<SettingsTree>(Folder.filePath("settings.sqlite")))
{
    Screen->pretend(SysInfo::Screen{pixels, {}, dotsPerInch});
    UseSettingsTree(Settings.get());
}

Desktop::~Desktop()
{
    Window.reset();
    UseSettingsTree(nullptr);
}

QString Desktop::settingsFile() const
{
    return Folder.filePath("settings.sqlite");
}

Zendova *Desktop::start(const QString &commandTail)
{
    if (!Started)
        Dialogs.message("Zendova Init Information", "Are you running Zendova for the first time?",
                        "Yes");
    return startAsItIs(commandTail);
}

Zendova *Desktop::startAsItIs(const QString &commandTail)
{
    Window.reset();
    FontCount = TTFontCount = SysFontCount = 0;
    ColorSchemeOn = ToolTipsOn = false;
    Window = std::make_unique<Zendova>(commandTail);
    Window->Start();
    Started = true;
    QApplication::setActiveWindow(Window.get());
    if (!QTest::qWaitForWindowExposed(Window.get()) ||
        !QTest::qWaitFor([this] { return !Window->FirstActivate; }))
        qWarning("The window never showed or never became active.");
    return Window.get();
}

bool Desktop::close()
{
    return Window->close();
}
