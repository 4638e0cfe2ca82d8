// The two lists of recent files as the user sees them: items of the File menu and the drop-down of
// a toolbar button. One mechanism; a row of differences a list. The tables behind them are
// RecentFiles. The desktop's list gets the same files.
#include "core/Zendova.h"

#include "core/CheckDFFFunctions.h"
#include "core/GlobalDeclarations.h"
#include "core/Message.h"
#include "platform/FileName.h"
#include "platform/controls/Toolbar.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

struct Zendova::RecentList
{
    RecentFiles Zendova::*Table;
    const char *Item; ///< array of menu items
    const char *Separator;
    const char *ErrorTitle;
    QString LastFolders::*LoadFolder;
    bool (Zendova::*MayLoad)(const QString &path);
    void (*Load)(Zendova &, const RecentFile &row);
};

namespace {

constexpr Zendova::RecentList TextList = {.Table = &Zendova::TextFiles,
                                          .Item = "FileMRU",
                                          .Separator = "FileSep3",
                                          .ErrorTitle = " File Load Error",
                                          .LoadFolder = &LastFolders::LFLoadPath,
                                          .MayLoad = &Zendova::CheckAlreadyLoaded,
                                          .Load = [](Zendova &z, const RecentFile &row) {
                                              z.TextFile.PendingFilePath = row.Folder + row.Name;
                                              z.TextFile.PendingFileTitle = row.Name;
                                              z.LoadTextFile(z.TextFile.PendingFilePath);
                                          }};
constexpr Zendova::RecentList MapList = {
    .Table = &Zendova::MapFiles,
    .Item = "CFMRU",
    .Separator = "FileSep2",
    .ErrorTitle = " Custom Map Load Error",
    .LoadFolder = &LastFolders::LMLoadPath,
    .MayLoad = &Zendova::CheckMapNotLoaded,
    .Load = [](Zendova &z, const RecentFile &row) { z.LoadCustomMap(row.Folder + row.Name); }};

/// "&3 name". What a menu would take for an access key or a column of its own is only a part of
/// the name. A name that would make the menu as wide as the screen loses its middle.
QString caption(int number, QString name, const QFontMetrics &metrics)
{
    constexpr qsizetype Short = 60; // characters: not to be measured
    constexpr int MostPixels = 480;
    if (name.size() > Short)
        name = metrics.elidedText(name, Qt::ElideMiddle, MostPixels);
    std::ranges::replace_if(
        name, [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(' '));
    return QString("&%1 ").arg(number) + name.replace('&', "&&");
}
constexpr qsizetype CaptionStart = 3; // of the name, behind the mark, the digit and the blank

} // namespace

QAction *Zendova::RecentItem(const RecentList &list, int index) const
{
    return menuBar()->findChild<QAction *>(list.Item + QString::number(index));
}

void Zendova::ShowRecentList(const RecentList &list)
{
    int index = 0;
    for (const RecentFile &row : (this->*list.Table).rows()) {
        if (row.Folder.isEmpty())
            break;
        QAction *item = RecentItem(list, ++index);
        item->setText(caption(index, row.Name, menuBar()->fontMetrics()));
        item->setVisible(true);
    }
    menuBar()->findChild<QAction *>(list.Separator)->setVisible(RecentItem(list, 1)->isVisible());
}

void Zendova::ReadMRULists()
{
    for (const RecentList &list : {TextList, MapList}) {
        (this->*list.Table).read();
        ShowRecentList(list);
        if (RegistryError)
            return;
    }
}

void Zendova::WriteMRULists()
{
    TextFiles.write();
    MapFiles.write();
}

void Zendova::AddToRecentList(const RecentList &list, const QString &path)
{
    Documents.add(path, MimeTypeOf(path));
    // The settings file keeps texts: read back, such a name would lead to no file.
    if (!FileName::isText(path))
        return;
    RecentFiles &table = this->*list.Table;
    table.add(path);
    Folders.*list.LoadFolder = WithoutSeparator(table.rows().front().Folder);
    ShowRecentList(list);
}

void Zendova::AddFileToMRU(const QString &Path)
{
    AddToRecentList(TextList, Path);
}

void Zendova::AddMapToMRU(const QString &Path)
{
    AddToRecentList(MapList, Path);
}

void Zendova::LoadRecent(const RecentList &list, int index)
{
    // A copy, as loading moves the rows.
    const RecentFile row = (this->*list.Table).rows().at(static_cast<std::size_t>(index - 1));
    const QString path = row.Folder + row.Name;
    if (!(this->*list.MayLoad)(path))
        return;
    if (const QString notice = PathNotice(path); !notice.isEmpty()) {
        ZndvMsg(notice, "OK", ProductName + list.ErrorTitle, false, 1);
        return;
    }
    Folders.*list.LoadFolder = row.Folder;
    list.Load(*this, row);
}

void Zendova::FileMRU_Click(int Index)
{
    LoadRecent(TextList, Index);
}

void Zendova::CFMRU_Click(int Index)
{
    LoadRecent(MapList, Index);
}

void Zendova::FillRecentMenu(const RecentList &list, QMenu *menu)
{
    menu->clear();
    // The counter can run ahead of the rows in use; the rows behind them show as blank items.
    for (int index = 1; index <= (this->*list.Table).counter(); ++index) {
        const QString name = RecentItem(list, index)->text().mid(CaptionStart);
        connect(menu->addAction(name), &QAction::triggered, this,
                [this, &list, index] { LoadRecent(list, index); });
    }
}

void Zendova::FillLoadMenu()
{
    FillRecentMenu(TextList, LoadSaveTB->button("Load")->menu());
}

void Zendova::FillMapMenu(QMenu *menu)
{
    FillRecentMenu(MapList, menu);
}
