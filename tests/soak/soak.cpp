// A random user over all windows, for sanitizers and invariants to notice what no test thought of.
// The same seed does the same things. Each is written to a log before it is done, one a line, and
// is done again from there; from a log without some of its lines too, so that the few events that a
// failure takes are found by leaving out the others.
//
//     soak [--seed N] [--events N] [--seconds N] [--log FILE] [--replay FILE]
#include "platform/CodePage.h"
#include "platform/controls/AltCode.h"
#include "tests/support/MainWindow.h"

#include <QCommandLineParser>
#include <algorithm>
#include <random>
#include <unistd.h>

namespace {

/// Commands that start other programs or end this one.
const QSet<QString> NotChosen = {"HelpReadme", "HelpCheckUpd", "HelpVisit", "HelpFeedback",
                                 "FileExit"};

constexpr unsigned HangSeconds = 60; ///< for which nothing may hold the user up

/// What a log says of it. Neither another window nor other controls beside it change that.
QString nameOf(const QObject *object)
{
    if (!object)
        return "-";
    const auto *control = qobject_cast<const QWidget *>(object);
    const QPoint place = control ? control->pos() : QPoint();
    return QString("%1 \"%2\" %3,%4")
        .arg(object->metaObject()->className(), object->objectName())
        .arg(place.x())
        .arg(place.y());
}

/// The numbers that the lines of a log begin with: each is all that chance gave its event.
std::vector<quint32> eventsOf(const QString &logFile)
{
    std::vector<quint32> events;
    for (const QByteArray &line : contentOf(logFile).split('\n'))
        if (const quint32 event = line.left(line.indexOf(' ')).toUInt())
            events.push_back(event);
    return events;
}

class RandomUser : public QObject
{
public:
    /// The user does the events of these numbers within the seconds, and logs them.
    RandomUser(const QString &folder, std::vector<quint32> events, int seconds,
               const QString &logFile)
        : Folder(folder), Events(std::move(events)), Seconds(seconds), Log(logFile)
    {
        if (!Log.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("The log can't be written.");
        writeFiles();
        Clock.start();
        connect(&Ticks, &QTimer::timeout, this, &RandomUser::step);
        Ticks.start(0); // the start may ask a question
        start();
    }

private:
    int below(int limit)
    {
        return std::uniform_int_distribution<int>(0, std::max(limit - 1, 0))(Random);
    }
    template<class List>
    auto oneOf(const List &list)
    {
        return list[below(int(std::size(list)))];
    }
    /// For the same event the same one, if it is there, whatever else is.
    template<class Object>
    Object *oneOf(const QList<Object *> &list)
    {
        // The toolkit's own hashes are other ones in each run.
        return *std::ranges::min_element(list, {}, [chance = Random()](const Object *object) {
            return std::hash<std::string>{}(std::to_string(chance) + nameOf(object).toStdString());
        });
    }

    /// Documents, maps and what only looks like them, for the user to load.
    void writeFiles()
    {
        QByteArray codes;
        for (int code = 32; code < 256; ++code)
            codes += char(code);
        QByteArray map;
        for (int number = 1; number <= CellCount; ++number)
            map += QByteArray::number(number) + ",\"" +
                   (number % 3 ? "" : codes.mid(number + 31, 1)) + "\"\r\n";
        map.replace("\"\"\"", "\"xx\"");
        const std::pair<const char *, QByteArray> files[] = {
            {"a.txt", codes + "\r\n" + codes},
            {"b.zuf", "{\\rtf1\\ansi{\\fonttbl{\\f0 Zt "
                      "Latin;}}{\\colortbl;\\red255;}\\f0\\fs36\\cf1 ab\\par}"},
            {"c.zcm", map},
            {"d.zcm", "no map"},
            {"e.txt", QByteArray(70000, 'x')},
            {"f.zuf", "{\\rtf1"},
            {"none.txt", {}}};
        for (const auto &[name, content] : files) {
            Files += Folder + '/' + name;
            if (!content.isEmpty())
                writeFile(Files.back(), content);
        }
    }

    void start()
    {
        Window.reset();
        FontCount = TTFontCount = SysFontCount = 0;
        Window = std::make_unique<Zendova>(below(3) ? QString() : oneOf(Files));
        try {
            Window->Start();
        } catch (const ProgramEnd &) { // the first question was answered with No
            return start();
        }
        activate(Window.get());
    }

    void step()
    {
        alarm(HangSeconds);
        if (Count == Events.size() || Clock.elapsed() > Seconds * 1000)
            return finish();
        // A nested loop of a dialog that this opens goes on taking steps.
        Ticks.start(0);
        const std::mt19937 outer = std::exchange(Random, std::mt19937(Events[Count++]));
        act();
        Random = outer;
        check();
    }

    void act()
    {
        QWidget *top = Window.get();
        for (QWidget *front :
             {QApplication::activeModalWidget(), QApplication::activePopupWidget()})
            top = front ? front : top;
        if (auto *files = qobject_cast<QFileDialog *>(top))
            return useFileDialog(files);
        if (below(4000) == 0 && top == Window.get())
            return restart();
        if (below(400) == 0)
            return changeDisplay();
        if (below(200) == 0)
            return drop();
        if (below(100) == 0)
            return fillClipboard();
        if (below(12) == 0 && top == Window.get())
            return chooseCommand();
        QList<QWidget *> controls;
        for (QWidget *control : top->findChildren<QWidget *>())
            if (control->isVisible() && control->isEnabled())
                controls += control;
        controls += top;
        QWidget *control = oneOf(controls);
        switch (below(6)) {
        case 0:
        case 1:
            return press(control);
        case 2:
            return drag(control);
        case 3:
            return wheel(control);
        default:
            return type(top);
        }
    }

    QPoint pointIn(const QWidget *control)
    {
        return {below(control->width()), below(control->height())};
    }

    void tell(const char *what, const QObject *where, const QString &how = {})
    {
        Log.write(QString("%1 %2 %3 %4\n")
                      .arg(QString::number(Events[Count - 1]), what, nameOf(where), how)
                      .toUtf8());
    }

    void press(QWidget *control)
    {
        const QPoint at = pointIn(control);
        const auto mouse = below(5) ? Qt::LeftButton : Qt::RightButton;
        tell("click", control, QString("%1,%2").arg(at.x()).arg(at.y()));
        if (below(8) == 0)
            QTest::mouseDClick(control, mouse, {}, at);
        else
            QTest::mouseClick(control, mouse, {}, at);
    }

    void drag(QWidget *control)
    {
        const QPoint from = pointIn(control);
        tell("drag", control, QString("%1,%2").arg(from.x()).arg(from.y()));
        const QPointer<QWidget> still = control;
        QTest::mousePress(control, Qt::LeftButton, {}, from);
        for (int i = 0; i < 4 && still; ++i)
            QTest::mouseMove(control, from + QPoint(below(200) - 100, below(200) - 100));
        if (still)
            QTest::mouseRelease(control, Qt::LeftButton, {}, pointIn(control));
    }

    void wheel(QWidget *control)
    {
        tell("wheel", control);
        const QPoint at = pointIn(control);
        QWheelEvent event(at, control->mapToGlobal(at), {}, {0, below(2) ? 120 : -120},
                          Qt::NoButton, below(2) ? Qt::ControlModifier : Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &event);
    }

    void type(QWidget *top)
    {
        QWidget *focus = QApplication::focusWidget();
        QWidget *to = focus && (focus == top || top->isAncestorOf(focus)) ? focus : top;
        static constexpr Qt::Key Keys[] = {
            Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Return, Qt::Key_Escape,    Qt::Key_Left,
            Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Home,      Qt::Key_End,
            Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F1,
            Qt::Key_F3,     Qt::Key_F10,      Qt::Key_Shift,  Qt::Key_Alt,       Qt::Key_Menu,
            Qt::Key_Space,  Qt::Key_Tab};
        static constexpr Qt::KeyboardModifiers Modifiers[] = {
            Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
            Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
        const Qt::KeyboardModifiers modifiers = oneOf(Modifiers);
        if (below(2)) {
            const Qt::Key key = oneOf(Keys);
            tell("key", to, QKeySequence(key | modifiers).toString());
            QTest::keyClick(to, key, modifiers);
        } else {
            const char character = char(33 + below(94));
            tell("type", to, QString(QChar(character)) + QKeySequence(modifiers).toString());
            QTest::keyClick(to, character, modifiers);
        }
    }

    void chooseCommand()
    {
        QList<QAction *> commands;
        for (QAction *command : Window->menuBar()->findChildren<QAction *>())
            if (command->isEnabled() && command->isVisible() && !command->isSeparator() &&
                !command->menu() && !NotChosen.contains(command->objectName()))
                commands += command;
        QAction *command = oneOf(commands);
        tell("command", command);
        command->trigger();
    }

    /// The toolkit's dialog can delete and rename files: only names are typed into it.
    void useFileDialog(QFileDialog *dialog)
    {
        const QString path = below(3) ? oneOf(Files)
                                      : Folder + "/saved" + QString::number(below(4)) +
                                            QStringList{".txt", ".zuf", ".zcm"}[below(3)];
        const bool cancel = below(3) == 0;
        tell("file", dialog, cancel ? "cancel" : path.mid(Folder.size() + 1));
        auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
        if (edit && !cancel) {
            edit->setText(path);
            QTest::keyClick(edit, Qt::Key_Return);
        }
        if ((cancel || below(2)) && dialog->isVisible())
            dialog->reject();
    }

    void changeDisplay()
    {
        static constexpr QSize Sizes[] = {{800, 600}, {1024, 768}, {1280, 1024}, {1920, 1080}};
        const QSize size = oneOf(Sizes);
        const double dotsPerInch = below(2) ? 96 : 120;
        tell("display", nullptr, QString("%1 at %2").arg(size.width()).arg(dotsPerInch));
        SysInfo::current().pretend(SysInfo::Screen{size, {}, dotsPerInch});
    }

    void drop()
    {
        const QString path = oneOf(Files);
        tell("drop", nullptr, path.mid(Folder.size() + 1));
        Window->OpenDroppedFile(path);
    }

    void fillClipboard()
    {
        tell("clipboard", nullptr);
        QApplication::clipboard()->setText(QString(below(3) ? 20 : 62000, QChar(33 + below(400))));
    }

    void restart()
    {
        tell("restart", nullptr);
        if (Window->close())
            start();
    }

    void check()
    {
        const qsizetype length = Window->TextBoard->TextLength();
        if (length > ::TextBoard::MaxLength())
            qFatal("The board holds %lld characters.", static_cast<long long>(length));
        if (!Window->FirstActivate && Window->isVisible() && Window->FMapContainer->SizeIndex < 1)
            qFatal("The map has no size.");
    }

    /// Out of all dialogs, the innermost first, and to the end. A question is answered with Yes.
    void finish()
    {
        Ticks.stop();
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        QWidget *popup = QApplication::activePopupWidget();
        if (!dialog && !popup) {
            std::printf("%zu events, in %s\n", Count, qPrintable(Log.fileName()));
            return QCoreApplication::exit(); // without the question of the exit
        }
        QTimer::singleShot(0, this, &RandomUser::finish); // what is closed may ask first
        if (popup)
            popup->close();
        else if (auto *yes = dialog->findChild<QAbstractButton *>("Button1"))
            yes->click();
        else
            dialog->reject();
    }

    QString Folder;
    std::vector<quint32> Events;
    int Seconds;
    QFile Log;
    std::mt19937 Random; ///< of the event under way
    std::size_t Count = 0;
    QStringList Files;
    QTimer Ticks;
    QElapsedTimer Clock;
    std::unique_ptr<Zendova> Window;
};

} // namespace

int main(int argc, char *argv[])
{
    const QTemporaryDir folder;
    for (const char *name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) // file dialogs begin and prints go there
        qputenv(name, folder.path().toUtf8());
    const TestFonts fonts;
    FontCatalog catalog;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setStyle(new Look);
    QApplication::setQuitOnLastWindowClosed(false);
    AltCode altCode([](int code) { return CodePage::toUnicode(static_cast<quint8>(code)); });
    application.installEventFilter(&altCode);

    QCommandLineParser options;
    options.addOptions({{"seed", "", "number", "1"},
                        {"events", "", "number", "50000"},
                        {"seconds", "", "number", "86400"},
                        {"log", "", "file", QApplication::applicationDirPath() + "/soak.log"},
                        {"replay", "", "file"}});
    options.process(application);
    std::vector<quint32> events = eventsOf(options.value("replay"));
    std::mt19937 seeds(options.value("seed").toUInt());
    while (!options.isSet("replay") && events.size() < options.value("events").toUInt())
        events.push_back(quint32(seeds()) | 1);
    const QString log = QFileInfo(options.value("log")).absoluteFilePath();
    if (events.empty() || chdir(qPrintable(folder.path())) != 0)
        return 1;
    SysInfo screen;
    screen.pretend(SysInfo::Screen{{1280, 1024}, {}, 96});
    SettingsTree settings(folder.filePath("settings.sqlite"));
    UseSettingsTree(&settings);
    {
        RandomUser user(folder.path(), events, options.value("seconds").toInt(), log);
        QApplication::exec();
    }
    UseSettingsTree(nullptr);
}
