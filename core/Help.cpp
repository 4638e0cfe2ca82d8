// The commands of the Help menu. They open windows, files and addresses and leave the board, the
// map and the settings alone; what the desktop can't open is passed over in silence.
#include "core/Zendova.h"

#include "core/About.h"
#include "core/Addresses.h"
#include "core/CheckDFFFunctions.h"
#include "core/GlobalDeclarations.h"
#include "platform/ProgramFile.h"
#include "platform/Shell.h"
#include "platform/controls/CmnDlg.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QUrl>

QString Zendova::HelpFile()
{
    const QString name = "Zendova300.hlp";
    return CheckFile(name) ? name : ProgramFile(name);
}

void Zendova::HelpContents_Click()
{
    CmnDlg::ShowHelp(this, {.Command = CmnDlg::HelpCommand::Contents, .HelpFile = HelpFile()});
}

bool Zendova::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress)
        if (const auto *menu = qobject_cast<QMenu *>(watched))
            return ShowMenuHelp(*menu, *static_cast<QKeyEvent *>(event));
    return QMainWindow::eventFilter(watched, event);
}

bool Zendova::ShowMenuHelp(const QMenu &Menu, const QKeyEvent &Key)
{
    if (!Key.matches(QKeySequence::HelpContents) || !HelpContents->isVisible())
        return false;
    const QAction *item = Menu.activeAction() ? Menu.activeAction() : Menu.menuAction();
    const int context = item->property("HelpId").toInt();
    while (QWidget *open = QApplication::activePopupWidget())
        open->close();
    using enum CmnDlg::HelpCommand;
    CmnDlg::ShowHelp(
        this,
        {.Command = context ? Context : Contents, .HelpFile = HelpFile(), .HelpContext = context});
    return true;
}

void Zendova::HelpReadme_Click()
{
    Shell::OpenFile(ProgramFile("Readme.doc"));
}

void Zendova::HelpCheckUpd_Click()
{
    Shell::Open(QUrl(UpdatePage));
}

void Zendova::HelpVisit_Click()
{
    Shell::Open(QUrl(HomePage));
}

void Zendova::HelpFeedback_Click()
{
    Shell::Open(QUrl(QString("mailto:") + FeedbackAddress));
}

void Zendova::HelpAbout_Click()
{
    About(this).exec();
}
