// The commands of the Help menu. They open windows, files and addresses and leave the board, the
// map and the settings alone; what the desktop can't open is passed over in silence.
#include "core/Zendova.h"

#include "core/About.h"
#include "core/Addresses.h"
#include "core/GlobalDeclarations.h"
#include "platform/Shell.h"
#include "platform/controls/CmnDlg.h"

#include <QCoreApplication>
#include <QUrl>

void Zendova::HelpContents_Click()
{
    CmnDlg::ShowHelp(
        this, {.Command = CmnDlg::HelpCommand::Contents, .HelpFile = ProductName + "300.hlp"});
}

void Zendova::HelpReadme_Click()
{
    Shell::OpenFile(QCoreApplication::applicationDirPath() + "/Readme.doc");
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
