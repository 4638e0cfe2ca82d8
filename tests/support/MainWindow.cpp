// Starts the window as main() does, and presses the buttons of its dialogs.
#include "tests/support/MainWindow.h"

#include "core/SettingsDefaults.h"
#include "tests/support/OtherProgram.h"

Answers::Answers()
{
    qApp->installEventFilter(this);
}

void Answers::message(const ExpectedMessage &said, const QString &button, const QString &what,
                      bool dontRepeat)
{
    message("Zendova" + QString(said.Title), QString(said.Text).replace("%1", what), button,
            dontRepeat);
}

void Answers::message(const QString &title, const QString &text, const QString &button,
                      bool dontRepeat)
{
    dialog(title, [=, this](QDialog *dialog) {
        const auto *area = dialog->findChild<QLabel *>("MessageArea");
        // As it is read: without what keeps folders in order and lets long names break.
        QString shown = area ? area->text().replace('\n', '\r') : QString();
        shown.remove(QChar(0x200B)).remove(QChar(0x200E));
        // Blank lines above a long text give way.
        const bool isWhole = text.endsWith(shown) && text.chopped(shown.size()).trimmed().isEmpty();
        if (text.contains('\r') ? !isWhole : !shown.simplified().contains(text))
            Faults += "text of " + title + ": " + shown;
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
    const QPointer<QDialog> still = dialog;
    expected.Use(dialog);
    if (still && QTest::currentTestFailed())
        still->reject();
}

QString stored(const WrittenValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        return *text;
    if (const auto *truth = std::get_if<bool>(&value))
        return *truth ? "True" : "False";
    return QString::number(static_cast<quint32>(std::get<qint32>(value)));
}

Desktop::Desktop(const QSize &pixels, double dotsPerInch, const QByteArray &settings)
    : Screen(std::make_unique<SysInfo>())
    , Settings(std::make_unique<SettingsTree>(
          settings.isEmpty() ? settingsFile() : writeFile(settingsFile(), settings)))
    , Started(!settings.isEmpty())
{
    // The file dialogs are the toolkit's, whose buttons can be pressed.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, Folder.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, Folder.path());
    qputenv("XDG_DATA_HOME", QFile::encodeName(Folder.filePath("data")));
    Screen->pretend(SysInfo::Screen{pixels, {}, dotsPerInch});
    UseSettingsTree(Settings.get());
}

Desktop::~Desktop()
{
    Window.reset();
    UseSettingsTree(nullptr);
}

QMap<QString, QString> Desktop::settings() const
{
    QMap<QString, QString> found;
    const qsizetype rootLength = SettingsRoot.size() + 1; // with the separator behind it
    if (QFile::exists(settingsFile()))
        OtherProgram(settingsFile())
            .run("SELECT key || '\\' || name, value FROM settings",
                 [&](char **values) { found[QString(values[0]).mid(rootLength)] = values[1]; });
    return found;
}

QString Desktop::setting(const QString &key, const QString &name) const
{
    return settings().value(key.isEmpty() ? name : key + '\\' + name);
}

void Desktop::alterSettings(const QString &sql)
{
    if (!OtherProgram(settingsFile()).run(sql))
        qFatal("The settings file can't be altered: %s", qPrintable(sql));
}

void Desktop::store(const QString &key, const QString &name, const WrittenValue &value, int kind)
{
    if (setting(key, name).isNull())
        qFatal("There is no setting %s.", qPrintable(name));
    if (kind == 0)
        kind = std::holds_alternative<qint32>(value) ? REG_DWORD : REG_SZ;
    const QString sql =
        "UPDATE settings SET kind = %1, value = '%2' WHERE key = '%3' AND name = '%4'";
    alterSettings(sql.arg(kind).arg(stored(value), SettingsPath(key), name));
}

Zendova *Desktop::start(const QString &commandTail)
{
    if (!Started)
        Dialogs.message(Says::FirstRun, "Yes");
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
    activate(Window.get());
    if (!QTest::qWaitForWindowExposed(Window.get()) ||
        !QTest::qWaitFor([this] { return !Window->FirstActivate; }))
        qWarning("The window never showed or never became active.");
    return Window.get();
}

void WindowTest::cleanup()
{
    QVERIFY(desktop->Dialogs.allCame());
    // Not every window system keeps an area painted that has become a window of its own.
    for (const QWidget *area : QApplication::allWidgets())
        QVERIFY2(area->isWindow() || !area->internalWinId(), qPrintable(area->objectName()));
    QGuiApplication::clipboard()->clear();
}

void WindowTest::useDesktop(const QSize &pixels, double dotsPerInch, const QByteArray &settings)
{
    if (desktop)
        QVERIFY(desktop->Dialogs.allCame());
    window = nullptr;
    desktop.reset(); // the new one takes over what is there once only
    desktop = std::make_unique<Desktop>(pixels, dotsPerInch, settings);
}

void WindowTest::begin(const QSize &pixels, double dotsPerInch)
{
    useDesktop(pixels, dotsPerInch);
    restart();
}

QToolButton *WindowTest::button(const char *key) const
{
    auto *found = window->findChild<QToolButton *>(key);
    Q_ASSERT(found);
    return found;
}
