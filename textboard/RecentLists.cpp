// The two lists of recent files as the user sees them: items of the File menu and the drop-down of
// a toolbar button. One mechanism; a row of differences a list. The tables behind them are
// RecentFiles.
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
    void (*SetPending)(Zendova &, const QString &path, const QString &name);
    bool (Zendova::*MayLoad)(const QString &path); ///< null: nothing is asked
    void (Zendova::*Load)(const QString &path);    ///< null while it is not built: items stay off
};

namespace {

constexpr Zendova::RecentList TextList = {
    .Table = &Zendova::TextFiles,
    .Item = "FileMRU",
    .Separator = "FileSep3",
    .ErrorTitle = " File Load Error",
    .LoadFolder = &LastFolders::LFLoadPath,
    .SetPending =
        [](Zendova &z, const QString &path, const QString &name) {
            z.TextFile.PendingFilePath = path;
            z.TextFile.PendingFileTitle = name;
        },
    .MayLoad = &Zendova::CheckAlreadyLoaded,
    .Load = &Zendova::LoadTextFile};
constexpr Zendova::RecentList MapList = {
    .Table = &Zendova::MapFiles,
    .Item = "CFMRU",
    .Separator = "FileSep2",
    .ErrorTitle = " Custom Map Load Error",
    .LoadFolder = &LastFolders::LMLoadPath,
    .SetPending =
        [](Zendova &z, const QString &path, const QString &name) {
            z.CustomMap.PendingMapPath = path;
            z.CustomMap.PendingMapName = name;
        },
    .MayLoad = nullptr,
    .Load = nullptr};

/// "&3 name". What a menu would take for an access key or a column of its own is only a part of
/// the name.
QString caption(int number, QString name)
{
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
        item->setText(caption(index, row.Name));
        item->setEnabled(list.Load != nullptr);
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
    RecentFiles &table = this->*list.Table;
    table.add(path);
    Folders.*list.LoadFolder = WithoutSeparator(table.rows().front().Folder);
    ShowRecentList(list);
}

void Zendova::AddFileToMRU(const QString &Path)
{
    // The settings file keeps texts: read back, such a name would lead to no file.
    if (FileName::isText(Path))
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
    if (list.MayLoad && !(this->*list.MayLoad)(path))
        return;
    if (const QString notice = PathNotice(path); !notice.isEmpty()) {
        ZndvMsg(notice, "OK", ProductName + list.ErrorTitle, false, 1);
        return;
    }
    Folders.*list.LoadFolder = row.Folder;
    list.SetPending(*this, path, row.Name);
    if (list.Load)
        (this->*list.Load)(path);
}

void Zendova::FileMRU_Click(int Index)
{
    LoadRecent(TextList, Index);
}

void Zendova::CFMRU_Click(int Index)
{
    LoadRecent(MapList, Index);
}

void Zendova::FillLoadMenu()
{
    QMenu *menu = LoadSaveTB->button("Load")->menu();
    menu->clear();
    // The counter can run ahead of the rows in use; the rows behind them show as blank items.
    for (int index = 1; index <= TextFiles.counter(); ++index) {
        const QString name = RecentItem(TextList, index)->text().mid(CaptionStart);
        connect(menu->addAction(name), &QAction::triggered, this,
                [this, index] { FileMRU_Click(index); });
    }
}
